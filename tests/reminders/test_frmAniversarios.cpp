// The list of birthdays: its rows, their mark, and the photograph of the one that is selected.
#include "contacts/DisposicaoCartao.h"
#include "controls/Units.h"
#include "reminders/ComTarefas.h"
#include "reminders/frmAniversarios.h"
#include "reminders/ProximosAniversarios.h"
#include "testlib/FotografiaNaBase.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr QRect caixa{350, 24, 161, 155}; // 5250, 360, 2415 x 2325 twips

struct ComLista : ComTarefas {
    using ComTarefas::ComTarefas;

    frmAniversarios &Abrir()
    {
        form = std::make_unique<frmAniversarios>(s.geral, janela);
        form->show();
        return *form;
    }
    // A list of one contact with that photograph, selected.
    frmAniversarios &Com_Fotografia(const QString &Fotografia)
    {
        const int id = s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, Fotografia}});
        Abrir().PreencherAniversarios({{QString::number(id), u"Ana"_s, u"7"_s, u"1"_s}});
        form->Mostrar_Foto();
        return *form;
    }
    QString Pintar(const QString &nome, QSize tamanho) const
    {
        QImage imagem(tamanho, QImage::Format_RGB32);
        imagem.fill(Qt::darkGreen);
        if (!imagem.save(s.Ficheiro(nome))) QTest::qFail("no picture", __FILE__, __LINE__);
        return s.Ficheiro(nome);
    }

    std::unique_ptr<frmAniversarios> form;
};

QStringList Linhas_Da_Lista(const frmAniversarios &form)
{
    QStringList linhas;
    for (int i = 0; i < form.ListViewAniversarios->topLevelItemCount(); ++i) {
        const QTreeWidgetItem &item = *form.ListViewAniversarios->topLevelItem(i);
        linhas << QStringList{item.text(0), item.text(1), item.text(2)}.join(u'|');
    }
    return linhas;
}
} // namespace

class TestFrmAniversarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        QCOMPARE(form.Label1->text(), c.s.Texto(175));
        QCOMPARE(form.windowTitle(), c.s.Texto(175));
        QCOMPARE(form.cmdFechar->text(), c.s.Texto(135));
        form.PreencherAniversarios({});
        QCOMPARE(form.ListViewAniversarios->headerItem()->text(0), c.s.Texto(27));
        QCOMPARE(form.ListViewAniversarios->headerItem()->text(1), c.s.Texto(177));
        QVERIFY(form.ListViewAniversarios->isColumnHidden(2));
    }

    void o_nome_tem_a_sua_largura_e_cada_linha_lugar_para_o_icone()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios({{u"1"_s, u"Ana"_s, u"7"_s, u"1"_s}});
        QCOMPARE(form.ListViewAniversarios->columnWidth(0), 186);
        QCOMPARE(form.ListViewAniversarios->topLevelItem(0)->sizeHint(0).height(), 18);
    }

    void sem_aniversarios_a_lista_di_lo()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        const QString frase = u"Não há aniversários nos próximos dias."_s;
        QCOMPARE(form.ListViewAniversarios->accessibleDescription(), frase);
        form.PreencherAniversarios({{u"4"_s, u"Ana"_s, u"7"_s, u"1"_s}});
        QCOMPARE(form.ListViewAniversarios->accessibleDescription(), QString());
        form.PreencherAniversarios({});
        QCOMPARE(form.ListViewAniversarios->accessibleDescription(), frase);
        QCOMPARE(form.ListViewAniversarios->topLevelItemCount(), 0);
    }

    void cada_linha_diz_o_dia_de_e_o_mes()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios(
            {{u"4"_s, u"Ana"_s, u"7"_s, u"1"_s}, {u"9"_s, u"Rui"_s, u"31"_s, u"12"_s}});
        QCOMPARE(Linhas_Da_Lista(form), (QStringList{u"Ana|7 de Janeiro|4"_s, u"Rui|31 de Dezembro|9"_s}));
    }

    void o_mes_tem_nome_so_de_1_a_12_e_nao_herda_o_da_linha_de_cima()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        std::vector<Aniversariante> pessoas;
        for (const auto &mes : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s,
                                u"10"_s, u"11"_s, u"12"_s, u"01"_s, u"13"_s})
            pessoas.push_back({u"1"_s, u"Ana"_s, u"7"_s, mes});
        form.PreencherAniversarios(pessoas);
        for (int mes = 1; mes <= 12; ++mes)
            QCOMPARE(Linhas_Da_Lista(form).at(mes - 1), u"Ana|7 de %1|1"_s.arg(c.s.Texto(13 + mes)));
        QCOMPARE(Linhas_Da_Lista(form).at(12), u"Ana|7 de |1"_s);
        QCOMPARE(Linhas_Da_Lista(form).at(13), u"Ana|7 de |1"_s);
    }

    void o_de_hoje_tem_icone_e_nada_fica_escolhido()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios(
            {{u"4"_s, u"Ana"_s, u"7"_s, u"1"_s, true}, {u"9"_s, u"Rui"_s, u"8"_s, u"1"_s}});
        QVERIFY(!form.ListViewAniversarios->topLevelItem(0)->icon(0).isNull());
        QVERIFY(form.ListViewAniversarios->topLevelItem(1)->icon(0).isNull());
        QVERIFY(form.ListViewAniversarios->selectedItems().isEmpty());
    }

    void com_e_sem_icone_o_nome_comeca_no_mesmo_sitio()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios(
            {{u"4"_s, u"Ana"_s, u"7"_s, u"1"_s, true}, {u"9"_s, u"Ana"_s, u"8"_s, u"1"_s}});
        form.cmdFechar->setFocus();
        const QTreeWidget &lista = *form.ListViewAniversarios;
        const auto nome = [&](int linha) {
            QRect lugar = lista.visualItemRect(lista.topLevelItem(linha));
            lugar.setLeft(22); // right of the icon
            lugar.setRight(lista.columnWidth(0) - 1);
            return lista.viewport()->grab(lugar).toImage();
        };
        QCOMPARE(nome(0), nome(1));
        QVERIFY(nome(0).convertToFormat(QImage::Format_Indexed8).colorCount() > 1); // letters
    }

    void encher_de_novo_substitui_as_linhas()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios({{u"4"_s, u"Ana"_s, u"7"_s, u"1"_s}});
        form.PreencherAniversarios({{u"9"_s, u"Rui"_s, u"8"_s, u"1"_s}});
        QCOMPARE(Linhas_Da_Lista(form), QStringList{u"Rui|8 de Janeiro|9"_s});
    }

    void sem_escolha_a_primeira_fica_escolhida_e_numa_lista_vazia_nada_acontece()
    {
        ComLista c;
        frmAniversarios &form = c.Abrir();
        form.Mostrar_Foto();
        QVERIFY(form.Thumb->pixmap(Qt::ReturnByValue).isNull());
        form.PreencherAniversarios({{u"1"_s, u"Ana"_s, u"7"_s, u"1"_s}, {u"2"_s, u"Rui"_s, u"8"_s, u"1"_s}});
        form.Mostrar_Foto();
        QCOMPARE(form.ListViewAniversarios->selectedItems(),
                 QList{form.ListViewAniversarios->topLevelItem(0)});
        QVERIFY(!form.Thumb->pixmap(Qt::ReturnByValue).isNull());
    }

    void um_clique_mostra_a_fotografia_dessa_linha()
    {
        ComLista c;
        const int ana = c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        const int rui =
            c.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}, {u"Fotografia"_s, u"kelmarin_sample.jpg"_s}});
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios({{QString::number(ana), u"Ana"_s, u"7"_s, u"1"_s},
                                    {QString::number(rui), u"Rui"_s, u"8"_s, u"1"_s}});
        QTreeWidget &lista = *form.ListViewAniversarios;
        for (const int linha : {1, 0, 1}) {
            QTest::mouseClick(lista.viewport(), Qt::LeftButton, {},
                              lista.visualItemRect(lista.topLevelItem(linha)).center());
            QCOMPARE(form.Image1().path(),
                     c.s.Ficheiro(linha == 1 ? u"kelmarin_sample.jpg"_s : u"semfoto_big.jpg"_s));
        }
    }

    void a_fotografia_cabe_na_caixa_e_fica_no_meio_data()
    {
        QTest::addColumn<QSize>("natural");
        QTest::addColumn<QSize>("mostrada"); // in pixels
        QTest::newRow("pequena fica como é") << QSize(100, 80) << QSize(100, 80);
        QTest::newRow("um pouco larga vai a metade") << QSize(162, 100) << QSize(81, 50);
        QTest::newRow("muito alta") << QSize(300, 800) << QSize(50, 133);
    }
    void a_fotografia_cabe_na_caixa_e_fica_no_meio()
    {
        QFETCH(QSize, natural);
        QFETCH(QSize, mostrada);
        ComLista c;
        const frmAniversarios &form = c.Com_Fotografia(c.Pintar(u"retrato.png"_s, natural));
        QCOMPARE(form.Image1().naturalSize(), natural);
        QCOMPARE(form.Thumb->size(), mostrada);
        QVERIFY((form.Thumb->geometry().center() - caixa.center()).manhattanLength() <= 2);
    }

    void um_caminho_relativo_comeca_na_pasta_do_programa()
    {
        ComLista c;
        c.Pintar(u"retrato.png"_s, {20, 20});
        QCOMPARE(c.Com_Fotografia(u"retrato.png"_s).Image1().path(), c.s.Ficheiro(u"retrato.png"_s));
    }

    void um_caminho_antigo_com_barras_invertidas_tambem()
    {
        ComLista c;
        QVERIFY(QDir(c.s.Pasta()).mkdir(u"fotos"_s));
        c.Pintar(u"fotos/ana.png"_s, {20, 20});
        QCOMPARE(c.Com_Fotografia(u"fotos\\ana.png"_s).Image1().path(), c.s.Ficheiro(u"fotos/ana.png"_s));
    }

    void uma_fotografia_da_base_mostra_se()
    {
        ComLista c;
        const frmAniversarios &form = c.Com_Fotografia(Por_Na_Base(c.s, {20, 20}));
        QCOMPARE(form.Image1().naturalSize(), QSize(20, 20));
        QCOMPARE(form.Thumb->pixmap().toImage().pixel(10, 10), qRgb(200, 0, 0));
    }

    void sem_fotografia_fica_a_de_sempre_em_toda_a_caixa()
    {
        ComLista c;
        const frmAniversarios &form = c.Com_Fotografia(QString(u""_s));
        QCOMPARE(form.Image1().path(), c.s.Ficheiro(u"semfoto_big.jpg"_s));
        QCOMPARE(form.Thumb->geometry(), caixa);
        QCOMPARE(c.s.geral.de.Rs("cmdEditarNome").State(), Recordset::Closed);
    }

    void uma_fotografia_que_nao_abre_da_a_do_erro_data()
    {
        QTest::addColumn<QString>("Fotografia");
        QTest::newRow("não existe") << u"nao_ha.jpg"_s;
        QTest::newRow("não é imagem") << u"leiame.txt"_s;
        QTest::newRow("outro sistema") << u"C:\\fotos\\ana.jpg"_s;
        QTest::newRow("a base não tem") << u"bd:nenhuma.png"_s;
        QTest::newRow("rede") << u"\\\\servidor\\ana.jpg"_s;
    }
    void uma_fotografia_que_nao_abre_da_a_do_erro()
    {
        QFETCH(QString, Fotografia);
        ComLista c;
        const frmAniversarios &form = c.Com_Fotografia(Fotografia);
        QCOMPARE(form.Image1().path(), c.s.Ficheiro(u"fotoerro_big.jpg"_s));
        QCOMPARE(form.Thumb->geometry(), caixa);
    }

    void um_contacto_que_ja_nao_existe_da_a_do_erro_e_sem_ficheiros_nada_se_diz()
    {
        ComLista c;
        QFile::remove(c.s.Ficheiro(u"fotoerro_big.jpg"_s));
        frmAniversarios &form = c.Abrir();
        form.PreencherAniversarios({{u"31000"_s, u"Ana"_s, u"7"_s, u"1"_s}});
        form.Mostrar_Foto();
        QVERIFY(form.isVisible());
    }

    void abrir_para_os_temporizadores_e_fechar_recomeca_e_activa_main_data()
    {
        QTest::addColumn<bool>("escape");
        QTest::newRow("cmdFechar") << false;
        QTest::newRow("Esc") << true;
    }
    void abrir_para_os_temporizadores_e_fechar_recomeca_e_activa_main()
    {
        QFETCH(bool, escape);
        ComLista c;
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::IniciarMail);
        frmAniversarios &form = c.Abrir();
        c.janela.setEnabled(false);
        QVERIFY(c.Temporizadores_Parados());
        if (escape)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            form.cmdFechar->click();
        QVERIFY(!form.isVisible());
        QVERIFY(c.Temporizadores_Ligados() && c.janela.isEnabled());
        QCOMPARE(correio.count(), 1);
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComLista c;
        c.s.Perder_Texto(135);
        VERIFICAR_FALHA(c.Abrir(), Failure::InvalidUseOfNull);
        QVERIFY(c.Temporizadores_Ligados());
    }

    void a_lista_vazia_diz_o_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("frase");
        QTest::newRow("PortuguesPT") << u"Não há aniversários nos próximos dias."_s;
        QTest::newRow("PortuguesBR") << u"Não há aniversários nos próximos dias."_s;
        QTest::newRow("InglesUK") << u"There are no birthdays in the coming days."_s;
        QTest::newRow("EspanholES") << u"No hay cumpleaños en los próximos días."_s;
        QTest::newRow("ItalianoIT") << u"Nei prossimi giorni non ci sono compleanni."_s;
        QTest::newRow("FrancesFR") << u"Il n’y a aucun anniversaire dans les prochains jours."_s;
        QTest::newRow("AlemaoDE") << u"In den nächsten Tagen gibt es keine Geburtstage."_s;
    }
    void a_lista_vazia_diz_o_em_cada_lingua()
    {
        ComLista c(QString::fromLatin1(QTest::currentDataTag()));
        QTEST(c.Abrir().ListViewAniversarios->accessibleDescription(), "frase");
    }
};

MORVEX_TESTE(TestFrmAniversarios)
#include "test_frmAniversarios.moc"
