// The search window: what each field finds, how the hits are stepped through, and the window itself.
#include "contacts/frmProcurar.h"

#include "contacts/Programa.h"
#include "controls/Units.h"
#include "data/Idiomas.h"
#include "session/frmLogin.h"
#include "session/SystemTray.h"
#include "testlib/Accoes.h"

using namespace Qt::StringLiterals;

namespace
{
// The main window with a search window of the test's own beside it.
struct Procura : Programa {
    frmProcurar form{janela, s.geral, s.plataforma};
    int vezes_trazida = 0; // how often the main window was asked for

    Procura()
    {
        QObject::connect(&form, &frmProcurar::Trazer_Main, &form, [this] { ++vezes_trazida; });
    }

    void Abrir()
    {
        Carregar();
        form.Abrir();
        QVERIFY(QTest::qWaitForWindowActive(&form));
    }

    // A click as the application delivers it: what goes wrong in it reaches the error box.
    void Clicar() { QTest::mouseClick(form.cmdProcurar, Qt::LeftButton); }

    void Procurar(QRadioButton *opcao, const QString &texto)
    {
        opcao->click();
        form.txtProcurar->setText(texto);
        Clicar();
    }

    void Procurar_Telefone(const QString &texto) { Procurar(form.opcaoTelefone, texto); }

    void Telefones(const QList<std::pair<QString, QString>> &contactos)
    {
        for (const auto &[nome, numero] : contactos)
            Contacto({{u"Nome"_s, nome}, {u"Telefone1"_s, numero}});
        Abrir();
    }

    QStringList Encontrados() const
    {
        QStringList nomes;
        for (int i = 0; i < form.ListaNomes->ListCount(); ++i)
            nomes << form.ListaNomes->List(i);
        return nomes;
    }

    QString Legenda() const { return form.cmdProcurar->text(); }
};
} // namespace

class TestFrmProcurar : public QObject
{
    Q_OBJECT

    // The search window that the program itself has opened; null while there is none.
    static frmProcurar *Aberta()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *form = qobject_cast<frmProcurar *>(janela); form && form->isVisible()) return form;
        return nullptr;
    }

    // The program with one contact whose search has just found it; the main window is as that left it.
    static void Procurar_Com_Main(Programa &p)
    {
        p.janela.procurar->trigger();
        frmProcurar *form = Aberta();
        QVERIFY(form != nullptr);
        form->txtProcurar->setText(u"an"_s);
        form->cmdProcurar->click();
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Procura p;
        p.s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        p.Abrir();
        QCOMPARE(p.form.windowTitle(), p.s.Texto(59));
        QCOMPARE(p.form.Frame1->title(), p.s.Texto(61));
        const QList<std::pair<QRadioButton *, int>> opcoes{
            {p.form.opcaoNome, 62},      {p.form.opcaoTelefone, 63}, {p.form.opcaoFax, 64},
            {p.form.opcaoTelemovel, 65}, {p.form.opcaoWebsite, 66},  {p.form.opcaoMorada, 67},
            {p.form.opcaoObs, 68}};
        for (const auto &[opcao, texto] : opcoes)
            QCOMPARE(opcao->text(), p.s.Texto(texto));
        QCOMPARE(p.form.opcaoEmail->text(), u"E-mail"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        QCOMPARE(p.form.txtProcurar->accessibleName(), p.s.Texto(59));
        QCOMPARE(p.form.ListaNomes->accessibleName(), withoutMnemonic(p.s.Texto(137)));
        QVERIFY(p.form.opcaoNome->isChecked());
    }

    void cada_opcao_procura_na_sua_coluna_data()
    {
        QTest::addColumn<QString>("opcao");
        QTest::addColumn<QString>("coluna");
        for (const auto &[opcao, coluna] : {std::pair{"opcaoNome", "Nome"},
                                            {"opcaoTelefone", "Telefone1"},
                                            {"opcaoTelefone", "Telefone2"},
                                            {"opcaoFax", "Fax"},
                                            {"opcaoTelemovel", "Telemovel1"},
                                            {"opcaoTelemovel", "Telemovel2"},
                                            {"opcaoTelemovel", "Telemovel3"},
                                            {"opcaoEmail", "Email1"},
                                            {"opcaoEmail", "Email2"},
                                            {"opcaoWebsite", "Website"},
                                            {"opcaoMorada", "Morada"},
                                            {"opcaoObs", "Obs"}})
            QTest::newRow(coluna) << opcao << coluna;
    }
    void cada_opcao_procura_na_sua_coluna()
    {
        QFETCH(QString, opcao);
        QFETCH(QString, coluna);
        Procura p;
        QMap<QString, Value> alheias{{u"Nome"_s, u"A outra"_s}}; // the text in every column of other options
        const QString raiz = QString(coluna).remove(u'1').remove(u'2').remove(u'3');
        for (const auto &outra :
             {u"Telefone1"_s, u"Telefone2"_s, u"Fax"_s, u"Telemovel1"_s, u"Telemovel2"_s, u"Telemovel3"_s,
              u"Email1"_s, u"Email2"_s, u"Website"_s, u"Morada"_s, u"Obs"_s})
            if (!outra.startsWith(raiz)) alheias.insert(outra, u"x9876y"_s);
        p.Contacto(alheias);
        p.Contacto({{u"Nome"_s, u"B 9876"_s}, {coluna, u"B 9876"_s}});
        p.Abrir();
        p.Procurar(&control<QRadioButton>(p.form, opcao), u"9876"_s);
        QCOMPARE(p.Escolhido(), u"B 9876"_s);
        for (const ComandoComLinhas comando : std::initializer_list<ComandoComLinhas>{
                 "cmdProcurarNome", "cmdProcurarEmail", "cmdProcurarWebsite", "cmdProcurarMorada",
                 "cmdProcurarObs", "cmdProcurarTelefone", "cmdProcurarFax", "cmdProcurarTelemovel"})
            QCOMPARE(p.s.geral.de.Rs(comando).State(), Recordset::Closed);
    }

    void varios_acertos_passam_um_a_um_ate_ao_texto_do_fim()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s, u"Joana"_s, u"Susana"_s});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"aNA"_s);
        QCOMPARE(p.Encontrados(), (QStringList{u"Ana"_s, u"Joana"_s, u"Susana"_s}));
        QCOMPARE(p.Escolhido(), u"Ana"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(71));
        QCOMPARE(p.vezes_trazida, 1);
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Joana"_s);
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Susana"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(71));
        p.s.caixas.Espera(p.s.Texto(70), 64, p.form.windowTitle());
        p.Clicar();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        QVERIFY(p.Encontrados().isEmpty());
        QCOMPARE(p.Escolhido(), u"Susana"_s);
        p.Clicar(); // a new search
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void com_dois_acertos_o_botao_ja_oferece_o_seguinte()
    {
        Procura p;
        for (const QString &nome : {u"Ana"_s, u"Hana"_s, u"Rui"_s})
            p.Contacto({{u"Nome"_s, nome}});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"an"_s);
        QCOMPARE(p.Encontrados(), (QStringList{u"Ana"_s, u"Hana"_s}));
        QCOMPARE(p.Legenda(), p.s.Texto(71));
    }

    void um_so_acerto_e_mostrado_e_o_clique_seguinte_esvazia_a_lista()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"ber"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        p.s.caixas.Espera(p.s.Texto(70), 64, p.form.windowTitle());
        p.Clicar();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(p.Encontrados().isEmpty());
    }

    void nenhum_acerto_num_campo_de_texto_e_dito()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        p.s.caixas.Espera(p.s.Texto(72), 64, p.form.windowTitle());
        p.Procurar(p.form.opcaoObs, u"nada disto"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        QCOMPARE(p.vezes_trazida, 0);
    }

    void percentagem_e_sublinhado_sao_sinais_da_base_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QStringList>("nomes");
        QTest::newRow("percentagem") << u"a%b"_s << QStringList{u"axxb"_s, u"axb"_s};
        QTest::newRow("sublinhado") << u"a_b"_s << QStringList{u"axb"_s};
        QTest::newRow("sem texto") << QString() << QStringList{u"axxb"_s, u"axb"_s, u"z"_s};
    }
    void percentagem_e_sublinhado_sao_sinais_da_base()
    {
        QFETCH(QString, texto);
        QFETCH(QStringList, nomes);
        Procura p;
        p.Carregar({u"axb"_s, u"axxb"_s, u"z"_s});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, texto);
        QStringList encontrados = p.Encontrados();
        encontrados.sort();
        nomes.sort();
        QCOMPARE(encontrados, nomes);
    }

    void a_procura_mostra_todos_os_grupos_outra_vez()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        p.janela.ComboGrupos->setListIndex(1);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 0);
        p.Procurar(p.form.opcaoNome, u"ana"_s);
        QCOMPARE(p.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(p.s.geral.GrupoActual, u"0"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void sem_acerto_a_ficha_fica_vazia_porque_a_lista_foi_lida_de_novo()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        p.janela.ListaNomes->setListIndex(0);
        p.s.caixas.Espera(p.s.Texto(72), 64, p.form.windowTitle());
        p.Procurar(p.form.opcaoNome, u"xyz"_s);
        QCOMPARE(p.Escolhido(), QString());
        QVERIFY(!p.janela.cmdEliminar->isEnabled());
    }

    void um_acerto_de_um_grupo_alheio_nao_muda_nada()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Contacto({{u"Nome"_s, u"Anabela"_s}, {u"Grupo"_s, p.s.Novo_Grupo(u"Deles"_s, 99)}});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"ana"_s);
        QCOMPARE(p.Encontrados(), (QStringList{u"Ana"_s, u"Anabela"_s}));
        p.Clicar();
        QCOMPARE(p.form.ListaNomes->ListIndex(), 1);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void um_clique_na_lista_mostra_esse_acerto()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Joana"_s, u"Susana"_s});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"ana"_s);
        ListBox &acertos = *p.form.ListaNomes;
        QTest::mouseClick(acertos.viewport(), Qt::LeftButton, {},
                          acertos.visualRect(acertos.model()->index(2, 0)).center());
        QCOMPARE(p.Escolhido(), u"Susana"_s);
        p.s.caixas.Espera(p.s.Texto(70), 64, p.form.windowTitle());
        p.Clicar();
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void dois_do_mesmo_nome_distinguem_se_pelo_id()
    {
        Procura p;
        p.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Telefone1"_s, u"1"_s}});
        p.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Telefone1"_s, u"2"_s}, {u"Obs"_s, u"esta"_s}});
        p.Abrir();
        p.Procurar(p.form.opcaoObs, u"esta"_s);
        QCOMPARE(p.janela.txtTelefone1->text(), u"2"_s);
    }

    void um_id_acima_de_16_bits_a_frente_do_acerto_da_o_erro()
    {
        Procura p;
        p.Contacto_Com_Id(40000, u"Aida"_s);
        p.Contacto({{u"Nome"_s, u"Berta"_s}});
        p.Abrir();
        p.s.caixas.Espera_Erro(Failure::OutOfMemoryOrRange);
        p.Procurar(p.form.opcaoNome, u"berta"_s);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.Escolhido(), QString());
    }

    void os_sinais_caem_dos_dois_lados_dos_numeros_data()
    {
        QTest::addColumn<QString>("termo");
        QTest::newRow("espacos") << u"21 345 67"_s;
        QTest::newRow("mais e pontos") << u"+351.21"_s;
        QTest::newRow("letras pelo meio") << u"2a1b3"_s;
    }
    void os_sinais_caem_dos_dois_lados_dos_numeros()
    {
        QFETCH(QString, termo);
        Procura p;
        p.Telefones({{u"Ana"_s, u"96"_s}, {u"Berta"_s, u"351-21-345-67-89"_s}});
        p.Procurar_Telefone(termo);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(71));
        QCOMPARE(p.vezes_trazida, 1);
    }

    void so_os_algarismos_de_0_a_9_contam()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"2٢1"_s}, {u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"2٣1"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void um_termo_sem_algarismos_acerta_logo_na_primeira_linha()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, QString()}, {u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"abc"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void um_termo_mais_longo_do_que_o_numero_nao_o_encontra()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"123"_s}, {u"Berta"_s, u"12"_s}});
        p.Procurar_Telefone(u"1234"_s);
        QCOMPARE(p.Escolhido(), QString());
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        QCOMPARE(p.vezes_trazida, 0);
    }

    void sem_acerto_a_lista_vazia_di_lo_ate_recomecar()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"123"_s}});
        const auto dito = [&] { return p.form.ListaNomes->accessibleDescription(); };
        QCOMPARE(dito(), QString());
        p.Procurar_Telefone(u"4"_s);
        QCOMPARE(dito(), p.s.Texto(72));
        p.form.txtProcurar->setText(u"12"_s);
        QCOMPARE(dito(), QString());
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Ana"_s);
        QCOMPARE(dito(), QString());
        p.Clicar(); // behind the last hit
        QCOMPARE(dito(), p.s.Texto(70));
        p.s.caixas.Espera(p.s.Texto(72), 64, p.form.windowTitle());
        p.Procurar(p.form.opcaoObs, u"nada disto"_s);
        QCOMPARE(dito(), p.s.Texto(72));
        QVERIFY(p.Encontrados().isEmpty());
    }

    void um_contacto_com_dois_numeros_certos_conta_uma_vez()
    {
        Procura p;
        p.Contacto({{u"Nome"_s, u"Ana"_s}, {u"Telefone1"_s, u"21 1"_s}, {u"Telefone2"_s, u"21 2"_s}});
        p.Contacto({{u"Nome"_s, u"Berta"_s}, {u"Telefone2"_s, u"21 3"_s}});
        p.Abrir();
        p.Procurar_Telefone(u"21"_s);
        QCOMPARE(p.Escolhido(), u"Ana"_s);
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void a_procura_de_numeros_esgotada_nao_faz_nada_ate_recomecar()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"22"_s}});
        p.Procurar_Telefone(u"21"_s);
        p.janela.ListaNomes->setListIndex(1);
        for (int i = 0; i < 2; ++i) {
            p.Clicar();
            QCOMPARE(p.Escolhido(), u"Berta"_s);
            QCOMPARE(p.Legenda(), p.s.Texto(71));
        }
        p.form.opcaoTelefone->click(); // the option that was set already
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void cliques_seguintes_nao_leem_os_numeros_outra_vez()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"21"_s);
        p.s.Escrever(u"UPDATE TblLista SET Telefone1='99'"_s);
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void mudar_o_texto_ou_a_opcao_recomeca_data()
    {
        QTest::addColumn<std::function<void(Procura &)>>("mudar");
        const auto mudanca = [](const char *nome, const std::function<void(Procura &)> &mudar) {
            QTest::newRow(nome) << mudar;
        };
        mudanca("texto", [](Procura &p) { p.form.txtProcurar->setText(u"2"_s); });
        mudanca("opcao por rato", [](Procura &p) {
            p.form.opcaoFax->click();
            p.form.opcaoTelefone->click();
        });
        mudanca("opcao por teclado", [](Procura &p) {
            p.form.opcaoTelefone->setFocus();
            QTest::keyClick(p.form.opcaoTelefone, Qt::Key_Down);
            QVERIFY(p.form.opcaoFax->isChecked());
            QTest::keyClick(p.form.opcaoFax, Qt::Key_Up);
            QVERIFY(p.form.opcaoTelefone->isChecked());
        });
    }
    void mudar_o_texto_ou_a_opcao_recomeca()
    {
        QFETCH(std::function<void(Procura &)>, mudar);
        Procura p;
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"21"_s);
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Berta"_s);
        mudar(p);
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void mudar_o_texto_esvazia_os_acertos()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Joana"_s});
        p.Abrir();
        p.Procurar(p.form.opcaoNome, u"ana"_s);
        p.form.txtProcurar->setText(u"jo"_s);
        QVERIFY(p.Encontrados().isEmpty());
        QCOMPARE(p.Legenda(), p.s.Texto(69));
    }

    void com_contactos_alheios_a_linha_do_numero_e_a_de_outro()
    {
        Procura p;
        p.Contacto({{u"Nome"_s, u"Aida"_s}, {u"Grupo"_s, p.s.Novo_Grupo(u"Deles"_s, 99)}});
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"22"_s}});
        p.Procurar_Telefone(u"21"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void uma_linha_fora_da_lista_da_o_erro_e_a_procura_nao_avanca()
    {
        Procura p;
        p.Contacto({{u"Nome"_s, u"Aida"_s}, {u"Grupo"_s, p.s.Novo_Grupo(u"Deles"_s, 99)}});
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"22"_s}});
        p.s.caixas.Espera_Erro(Failure::InvalidPropertyValue);
        p.Procurar_Telefone(u"22"_s);
        p.s.caixas.Espera_Erro(Failure::InvalidPropertyValue);
        p.Clicar();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.vezes_trazida, 0);
        QCOMPARE(p.Legenda(), p.s.Texto(69));
    }

    void numeros_nulos_valem_como_vazios()
    {
        Procura p;
        p.Contacto({{u"Nome"_s, u"Ana"_s}});
        p.s.Escrever(u"UPDATE TblLista SET Telefone1=NULL, Telefone2=NULL"_s);
        p.Telefones({{u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"21"_s);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void voltar_a_janela_repoe_as_legendas_e_a_procura_continua()
    {
        Procura p;
        p.Telefones({{u"Ana"_s, u"21"_s}, {u"Berta"_s, u"21"_s}});
        p.Procurar_Telefone(u"21"_s);
        QCOMPARE(p.Legenda(), p.s.Texto(71));
        QEvent activar(QEvent::WindowActivate);
        QApplication::sendEvent(&p.form, &activar);
        QCOMPARE(p.Legenda(), p.s.Texto(69));
        p.Clicar();
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void abrir_da_lhe_o_teclado_ainda_que_ja_estivesse_a_vista()
    {
        Procura p;
        p.Abrir();
        p.Mostrar_Janela();
        p.form.Abrir();
        QVERIFY(QTest::qWaitForWindowActive(&p.form));
    }

    void enter_procura()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        QTest::keyClicks(p.form.txtProcurar, u"ber"_s);
        QTest::keyClick(p.form.txtProcurar, Qt::Key_Return);
        QCOMPARE(p.Escolhido(), u"Berta"_s);
    }

    void escape_fecha_e_a_janela_volta_como_nova()
    {
        Procura p;
        p.Carregar({u"Ana"_s, u"Joana"_s});
        p.Abrir();
        QVERIFY(p.form.Aberta());
        p.Procurar(p.form.opcaoMorada, u""_s);
        QTest::keyClick(&p.form, Qt::Key_Escape);
        QVERIFY(!p.form.Aberta() && !p.form.isVisible());
        p.form.Abrir();
        QVERIFY(p.form.txtProcurar->text().isEmpty());
        QVERIFY(p.form.opcaoNome->isChecked());
        QVERIFY(p.Encontrados().isEmpty());
        QCOMPARE(p.Legenda(), p.s.Texto(69));
    }

    void o_tabulador_para_na_opcao_marcada_data()
    {
        QTest::addColumn<std::function<void(Procura &)>>("marcar");
        QTest::addColumn<QString>("opcao");
        const auto caso = [](const char *nome, const QString &opcao,
                             const std::function<void(Procura &)> &g) { QTest::newRow(nome) << g << opcao; };
        caso("ao abrir", u"opcaoNome"_s, [](Procura &) {});
        caso("pela letra, sem o foco", u"opcaoObs"_s, [](Procura &p) { p.form.opcaoObs->click(); });
        caso("ao voltar a abrir", u"opcaoNome"_s, [](Procura &p) {
            p.form.opcaoNome->setFocus();
            QTest::keyClick(p.form.opcaoNome, Qt::Key_Down);
            QVERIFY(p.form.opcaoTelefone->isChecked());
            QTest::keyClick(&p.form, Qt::Key_Escape);
            p.Abrir();
        });
    }
    void o_tabulador_para_na_opcao_marcada()
    {
        QFETCH(std::function<void(Procura &)>, marcar);
        QFETCH(QString, opcao);
        Procura p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.Abrir();
        marcar(p);
        p.form.txtProcurar->setFocus();
        QTest::keyClick(p.form.txtProcurar, Qt::Key_Tab);
        QCOMPARE(p.form.focusWidget()->objectName(), opcao);
        QVERIFY(control<QRadioButton>(p.form, opcao).isChecked());
    }

    void o_lugar_segue_a_resolucao_do_ecra_data()
    {
        QTest::addColumn<QString>("resolucao");
        QTest::addColumn<int>("left");
        for (const auto &pequena : {u"640x480"_s, u"720x480"_s, u"720x576"_s, u"800x600"_s})
            QTest::newRow(qPrintable(pequena)) << pequena << 8450;
        for (const auto &media : {u"1024x768"_s, u"1152x864"_s, u"1280x960"_s, u"1280x1024"_s})
            QTest::newRow(qPrintable(media)) << media << -1120;
        QTest::newRow("outra") << u"1920x1080"_s << 8450;
    }
    void o_lugar_segue_a_resolucao_do_ecra()
    {
        QFETCH(QString, resolucao);
        QFETCH(int, left);
        QCOMPARE(frmProcurar::Left_Por_Resolucao(resolucao, 1000), left);
    }

    void a_janela_fica_ao_lado_de_main()
    {
        Procura p;
        p.janela.move(30, 40);
        p.Mostrar_Janela();
        p.Abrir(); // the test's screen is none of those with a place of their own
        QCOMPARE(p.form.pos(), p.janela.pos() + QPoint(pixels(7450), 0));
    }

    void sem_tamanho_guardado_a_janela_abre_no_menor_que_tudo_mostra_data()
    {
        QTest::addColumn<QString>("idioma");
        QTest::addColumn<int>("letras");
        for (const int letras : {11, 16})
            for (const Idioma &idioma : idiomas::todos)
                QTest::addRow("%s, %d", idioma.coluna, letras) << QString::fromLatin1(idioma.coluna) << letras;
    }
    void sem_tamanho_guardado_a_janela_abre_no_menor_que_tudo_mostra()
    {
        QFETCH(QString, idioma);
        QFETCH(int, letras);
        scale::setLetters(letras);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        Procura p;
        p.s.geral.IdiomaActual = idioma;
        p.Abrir();
        QCOMPARE(p.form.size(), p.form.layout()->totalMinimumSize());
    }

    void a_mesma_entrada_abre_e_fecha_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::newRow("menu e barra") << u"procurar"_s;
        QTest::newRow("tabuleiro") << u"SystemTrayProcurar"_s;
    }
    void a_mesma_entrada_abre_e_fecha()
    {
        QFETCH(QString, entrada);
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        auto &comando = control<QAction>(p.janela, entrada);
        QVERIFY(comando.isEnabled());
        comando.trigger();
        QVERIFY(Aberta() != nullptr);
        QVERIFY(!Aberta()->isModal());
        comando.trigger();
        QVERIFY(Aberta() == nullptr);
        comando.trigger();
        QVERIFY(Aberta() != nullptr);
    }

    void sem_contactos_a_janela_nao_abre()
    {
        Programa p;
        p.Carregar();
        p.s.caixas.Espera(p.s.Texto(60), 16, u"Morvex 1.0"_s);
        p.janela.procurar->trigger();
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(Aberta() == nullptr);
    }

    void um_acerto_mostra_a_janela_escondida()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        QVERIFY(!p.janela.isVisible());
        Procurar_Com_Main(p);
        QVERIFY(p.janela.isVisible());
        QCOMPARE(p.Escolhido(), u"Ana"_s);
    }

    void um_acerto_restaura_a_janela_minimizada()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.janela.showMinimized();
        Procurar_Com_Main(p);
        QVERIFY(p.janela.isVisible() && !p.janela.isMinimized());
    }

    void com_a_janela_trancada_um_acerto_pede_a_senha()
    {
        Programa p;
        p.Carregar({u"Ana"_s, u"Berta"_s});
        p.s.Novo_Utilizador(u"Rui"_s, u"x"_s, u"11111"_s, true);
        p.s.Entrar(u"Rui"_s);
        p.janela.findChild<SystemTray *>()->Minimizar_Tray();
        bool pedida = false;
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &login) {
            pedida = true;
            login.cmdCancelar->click();
        });
        Procurar_Com_Main(p);
        QVERIFY(pedida);
        QVERIFY(!p.janela.isVisible());
    }
};

MORVEX_TESTE(TestFrmProcurar)
#include "test_frmProcurar.moc"
