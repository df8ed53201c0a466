// The start: its steps, what each reads, who gets in, and that a failing step never holds up the later ones.
#include "data/frmSeleccionarIdioma.h"
#include "online/Presenca.h"
#include "reminders/frmAniversarios.h"
#include "session/Arranque.h"
#include "session/frmLoading.h"
#include "session/frmLogin.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/BaseAntiga.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
// A window about to start. The rights are those of a process in which nobody has been let in yet.
struct PorArrancar {
    explicit PorArrancar(Sistema::Estado estado = Sistema::Estado::Semeado) : s(estado)
    {
        s.geral.SessaoActual = {};
    }

    void Passo(const char *nome)
    {
        Arranque inicio = janela.Inicio();
        for (const Arranque::Passo &passo : inicio.Passos())
            if (qstrcmp(passo.nome, nome) == 0) return passo.executar();
        QTest::qFail(nome, __FILE__, __LINE__);
    }

    // The login of Ana, who has a password, when it comes.
    static void Entrar_Como_Ana()
    {
        accoes::Quando_Abrir<frmLogin>([](frmLogin &form) {
            form.txtUser->setText(u"Ana"_s);
            form.txtPass->setText(u"segredo"_s);
            form.cmdOk->click();
        });
    }

    void Escrever_Ini(std::initializer_list<std::array<const char *, 3>> chaves)
    {
        for (const auto &[seccao, chave, valor] : chaves)
            s.geral.ini.Escrever_Ini(QString::fromLatin1(seccao), QString::fromLatin1(chave),
                                     QString::fromLatin1(valor));
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
};

// A start over an installation whose database was moved, and what its user does about it.
struct Mudada {
    explicit Mudada(bool com_ana = false)
    {
        if (com_ana) s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        s.Largar_O_Ficheiro();
        if (!QDir().mkpath(s.Ficheiro(u"mudança"_s)) || !QFile::rename(s.Base(), Onde()))
            qFatal("the database cannot be moved");
    }
    QString Onde() const { return s.Ficheiro(u"mudança/Łódź.mdb"_s); }
    void Espera_Oferta(int resposta)
    {
        s.caixas.Espera(u"The database was not found:\r\n"_s + s.Base() +
                            u"\r\n\r\nDo you want to choose the file where it is now?"_s,
                        52, u"Morvex"_s, resposta);
    }
    QString Caminho_Guardado() { return s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s); }

    Sistema s;
    Geral nova{s.Pasta()};
    Main janela{nova, s.plataforma};
};

QWidget *frmLoading_A_Vista()
{
    for (QWidget *janela : QApplication::topLevelWidgets())
        if (qobject_cast<frmLoading *>(janela) != nullptr && janela->isVisible()) return janela;
    return nullptr;
}
} // namespace

class TestArranque : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void os_passos_correm_por_esta_ordem()
    {
        PorArrancar p;
        Arranque inicio = p.janela.Inicio();
        QStringList nomes;
        for (const Arranque::Passo &passo : inicio.Passos())
            nomes << QLatin1StringView(passo.nome);
        QCOMPARE(nomes, (QStringList{u"Escrever_Data"_s, u"Escolher_Idioma"_s, u"Ler_Configuracao"_s,
                                     u"Ler_TblConfig"_s, u"Iniciar_Sessao"_s, u"Escrever_Titulo"_s,
                                     u"Confirmar_Opcoes"_s, u"Atribuir_Legendas"_s, u"Preencher_Filtro"_s,
                                     u"Restaurar_Memos"_s, u"Adicionar_Icone"_s, u"Avisar_Aniversarios"_s,
                                     u"Minimizar"_s, u"Sincronizar_Messenger"_s, u"Iniciar_Correio"_s}));
    }

    void cmdData_mostra_a_data_de_hoje_por_extenso()
    {
        PorArrancar p;
        p.Passo("Escrever_Data");
        QCOMPARE(p.janela.cmdData->text(),
                 QLocale::system().toString(QDate(2027, 2, 1), QLocale::LongFormat));
        QVERIFY(p.janela.cmdData->text().contains(u"2027"_s));
    }

    // Settings

    void as_definicoes_vem_do_ficheiro()
    {
        PorArrancar p;
        p.Escrever_Ini({{"envelopes", "alimentacao", "envelope_left"},
                        {"aniversarios", "dias", "12"},
                        {"aniversarios", "aviso", "1"},
                        {"fotografias", "lastpathpic", "/fotos"},
                        {"arranque", "autorun", "sim"},
                        {"arranque", "minimizar", "nao"},
                        {"memos", "fontname", "Courier"},
                        {"memos", "fontsize", "10,5"},
                        {"memos", "fontbold", "True"},
                        {"memos", "fontitalic", "False"},
                        {"memos", "corfundo", "255"},
                        {"basedados", "caminhobd", "/outra/morvex.mdb"},
                        {"novaversao", "aviso", "1"},
                        {"emailnotify", "activo", "1"},
                        {"emailnotify", "minutos", "45"},
                        {"messenger", "activo", "1"},
                        {"som", "email", "mail.wav"},
                        {"som", "tarefa", "alarme.wav"}});
        p.Passo("Ler_Configuracao");
        const Geral &g = p.s.geral;
        QCOMPARE(g.AlimentacaoEnvelopes, u"envelope_left"_s);
        QCOMPARE(g.DiasAniversarios, qint16(12));
        QCOMPARE(g.AvisoAniversarios, u"1"_s);
        QCOMPARE(g.UltimaPastaFotos, u"/fotos"_s);
        QCOMPARE(g.AutorunArranque, u"sim"_s);
        QCOMPARE(g.MinimizarArranque, u"nao"_s);
        QCOMPARE(g.MemoFontName, u"Courier"_s);
        QCOMPARE(g.MemoFontSize, u"10,5"_s);
        QCOMPARE(g.MemoFontBold, u"True"_s);
        QCOMPARE(g.MemoFontItalic, u"False"_s);
        QCOMPARE(g.MemoCorFundo, u"255"_s);
        QCOMPARE(g.CaminhoBD, u"/outra/morvex.mdb"_s);
        QCOMPARE(g.AvisoNovaVersao, u"1"_s);
        QCOMPARE(g.EmailNotifyActivo, qint16(1));
        QCOMPARE(g.EmailNotifyMinutos, qint16(45));
        QCOMPARE(g.MessengerActivo, qint16(1));
        QCOMPARE(g.SomEmail, u"mail.wav"_s);
        QCOMPARE(g.SomTarefa, u"alarme.wav"_s);
    }

    void um_inteiro_vazio_ou_que_nao_e_numero_fica_a_zero_e_os_outros_leem_se()
    {
        PorArrancar p;
        p.Escrever_Ini({{"aniversarios", "dias", ""},
                        {"emailnotify", "activo", "muito"},
                        {"emailnotify", "minutos", "99999"},
                        {"messenger", "activo", "1"},
                        {"som", "tarefa", "alarme.wav"}});
        p.Passo("Ler_Configuracao");
        QCOMPARE(p.s.geral.DiasAniversarios, qint16(0));
        QCOMPARE(p.s.geral.EmailNotifyActivo, qint16(0));
        QCOMPARE(p.s.geral.EmailNotifyMinutos, qint16(0)); // does not fit 16 bits
        QCOMPARE(p.s.geral.MessengerActivo, qint16(1));
        QCOMPARE(p.s.geral.SomTarefa, u"alarme.wav"_s);
    }

    void lingua_versao_e_moradas_vem_de_TblConfig()
    {
        PorArrancar p;
        p.s.Escrever(
            u"UPDATE TblConfig SET Idioma='FrancesFR', Versao='3.1', Remetente='Eu', Destinatario='Tu'"_s);
        p.Passo("Ler_TblConfig");
        QCOMPARE(p.s.geral.IdiomaActual, u"FrancesFR"_s);
        QCOMPARE(p.s.geral.VersaoBD, u"3.1"_s);
        QCOMPARE(p.s.geral.RemetenteBD, u"Eu"_s);
        QCOMPARE(p.s.geral.DestinatarioBD, u"Tu"_s);
        QCOMPARE(p.s.geral.de.Rs("cmdVerConfig").State(), Recordset::Closed);
    }

    void as_palavras_dos_dialogos_seguem_a_lingua_data()
    {
        QTest::addColumn<QString>("guardar_como");
        QTest::addColumn<QString>("cancelar");
        QTest::addColumn<QString>("tecla"); // in Portuguese as it stands on the key
        QTest::newRow("PortuguesPT") << u"Guardar como"_s << u"Cancelar"_s << u"Delete"_s;
        QTest::newRow("PortuguesBR") << u"Salvar como"_s << u"Cancelar"_s << u"Delete"_s;
        QTest::newRow("InglesUK") << u"Save As"_s << u"Cancel"_s << u"Delete"_s;
        QTest::newRow("FrancesFR") << u"Enregistrer sous"_s << u"Annuler"_s << u"Supprimer"_s;
    }
    void as_palavras_dos_dialogos_seguem_a_lingua()
    {
        QFETCH(QString, guardar_como);
        QFETCH(QString, cancelar);
        QFETCH(QString, tecla);
        PorArrancar p;
        p.s.Escrever(u"UPDATE TblConfig SET Idioma='%1'"_s.arg(QLatin1StringView(QTest::currentDataTag())));
        p.Passo("Ler_TblConfig");
        QCOMPARE(QCoreApplication::translate("QFileDialog", "Save As"), guardar_como);
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), cancelar);
        QCOMPARE(QCoreApplication::translate("QShortcut", "Delete"), tecla);
    }

    void uma_coluna_nula_de_TblConfig_salta_se_e_as_outras_leem_se()
    {
        PorArrancar p;
        p.s.Escrever(u"UPDATE TblConfig SET Versao=NULL, Destinatario='Tu'"_s);
        p.Passo("Ler_TblConfig");
        QVERIFY(p.s.geral.VersaoBD.isEmpty());
        QCOMPARE(p.s.geral.DestinatarioBD, u"Tu"_s);
    }

    // First run

    void sem_caminhobd_aparece_a_escolha_da_lingua_e_ela_vale_logo()
    {
        SO_NUM_FICHEIRO("a first run");
        PorArrancar p(Sistema::Estado::Vazio);
        bool parados = false;
        accoes::Quando_Abrir<frmSeleccionarIdioma>([&](frmSeleccionarIdioma &form) {
            parados = !p.s.geral.temporizadores.timerTarefas.Enabled();
            form.cmdFR->click();
        });
        p.Passo("Escolher_Idioma");
        QVERIFY(parados);
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled() &&
                p.s.geral.temporizadores.timerPonto.Enabled());
        QCOMPARE(p.s.geral.CaminhoBD, p.s.Base()); // the default path
        p.Passo("Ler_TblConfig");
        QCOMPARE(p.s.geral.IdiomaActual, u"FrancesFR"_s);
        p.Passo("Iniciar_Sessao"); // no login comes: there are no users
        p.Passo("Atribuir_Legendas");
        p.Passo("Preencher_Filtro");
        QCOMPARE(p.janela.cmdNovo->text(), p.s.Texto(45));
        QCOMPARE(p.janela.ListaNomes->ListCount(), 2);
    }

    void fechar_a_escolha_da_lingua_deixa_as_legendas_em_branco()
    {
        SO_NUM_FICHEIRO("a first run");
        PorArrancar p(Sistema::Estado::Vazio);
        accoes::Quando_Abrir<frmSeleccionarIdioma>([](frmSeleccionarIdioma &form) { form.close(); });
        p.Passo("Escolher_Idioma");
        p.Passo("Ler_TblConfig");
        p.Passo("Atribuir_Legendas");
        QVERIFY(p.s.geral.IdiomaActual.isEmpty());
        QVERIFY(p.janela.cmdNovo->text().isEmpty());
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"0"_s});
    }

    void sem_lingua_escolhida_as_opcoes_acabam_na_mesma_a_primeira_corrida()
    {
        SO_NUM_FICHEIRO("a first run");
        PorArrancar p(Sistema::Estado::Vazio);
        bool cancelar_activo = true;
        QString legenda = u"?"_s;
        accoes::Quando_Abrir<frmSeleccionarIdioma>([&](frmSeleccionarIdioma &idioma) {
            accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
                cancelar_activo = opcoes.cmdCancelar->isEnabled();
                legenda = opcoes.cmdCancelar->text();
                opcoes.cmdOk->click();
            });
            idioma.close();
        });
        p.janela.Carregar();
        QVERIFY(!cancelar_activo && legenda.isEmpty());
        QVERIFY(p.janela.isVisible() && p.janela.isEnabled());

        // The next start asks nothing any more, though the tables are empty.
        Geral proximo(p.s.Pasta());
        Main outra(proximo, p.s.plataforma);
        outra.Carregar();
        QVERIFY(outra.isVisible());
        QVERIFY(proximo.IdiomaActual.isEmpty());
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"0"_s});
    }

    void com_caminhobd_nao_se_pergunta_a_lingua()
    {
        PorArrancar p;
        p.Passo("Escolher_Idioma"); // a modal form would wait here for ever
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
    }

    // Session

    void sem_utilizadores_nao_ha_login_e_ha_todos_os_direitos()
    {
        PorArrancar p;
        p.s.geral.SessaoActual.IdUtilizador.clear();
        p.Passo("Iniciar_Sessao");
        const Sessao &sessao = p.s.geral.SessaoActual;
        QVERIFY(sessao.Adicionar && sessao.Editar && sessao.Eliminar && sessao.Grupos && sessao.Utilizadores);
        QCOMPARE(sessao.IdUtilizador, u"0"_s);
        QVERIFY(sessao.Utilizador.isEmpty());
        QVERIFY(!sessao.PedirPassSystemTray);
        QCOMPARE(p.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    void sem_utilizadores_leem_se_as_chaves_do_utilizador_0()
    {
        PorArrancar p;
        p.Escrever_Ini({{"emailnotify", "minutos", "20"},
                        {"som", "email", "geral.wav"},
                        {"emailnotify0", "activo", "1"},
                        {"emailnotify0", "minutos", "5"},
                        {"messenger0", "activo", "1"},
                        {"som0", "email", "da casa.wav"},
                        {"som0", "tarefa", "alarme.wav"}});
        p.Passo("Ler_Configuracao");
        p.Passo("Iniciar_Sessao");
        QCOMPARE(p.s.geral.EmailNotifyActivo, qint16(1));
        QCOMPARE(p.s.geral.EmailNotifyMinutos, qint16(5));
        QCOMPARE(p.s.geral.MessengerActivo, qint16(1));
        QCOMPARE(p.s.geral.SomEmail, u"da casa.wav"_s);
        QCOMPARE(p.s.geral.SomTarefa, u"alarme.wav"_s);
    }

    void sem_utilizadores_uma_chave_vazia_guarda_o_que_a_seccao_comum_deu()
    {
        PorArrancar p;
        p.Escrever_Ini({{"emailnotify", "activo", "1"},
                        {"emailnotify", "minutos", "20"},
                        {"messenger", "activo", "1"},
                        {"som", "email", "geral.wav"},
                        {"som", "tarefa", "alarme.wav"},
                        {"emailnotify0", "activo", ""},
                        {"som0", "email", ""}});
        p.Passo("Ler_Configuracao");
        p.Passo("Iniciar_Sessao");
        QCOMPARE(p.s.geral.EmailNotifyActivo, qint16(1));
        QCOMPARE(p.s.geral.EmailNotifyMinutos, qint16(20));
        QCOMPARE(p.s.geral.MessengerActivo, qint16(1));
        QCOMPARE(p.s.geral.SomEmail, u"geral.wav"_s);
        QCOMPARE(p.s.geral.SomTarefa, u"alarme.wav"_s);
    }

    void depois_do_login_leem_se_as_chaves_do_utilizador()
    {
        PorArrancar p;
        const QByteArray id = QByteArray::number(p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s));
        const QByteArray emailnotify = "emailnotify" + id;
        const QByteArray messenger = "messenger" + id;
        const QByteArray som = "som" + id;
        p.Escrever_Ini({{emailnotify.constData(), "activo", "1"},
                        {emailnotify.constData(), "minutos", "5"},
                        {messenger.constData(), "activo", "1"},
                        {som.constData(), "email", "dela.wav"},
                        {som.constData(), "tarefa", "alarme.wav"}});
        p.Passo("Ler_Configuracao");
        QCOMPARE(p.s.geral.EmailNotifyActivo, qint16(0)); // nobody has logged in yet
        PorArrancar::Entrar_Como_Ana();
        p.Passo("Iniciar_Sessao");
        QCOMPARE(p.s.geral.SessaoActual.Utilizador, u"Ana"_s);
        QCOMPARE(p.s.geral.EmailNotifyActivo, qint16(1));
        QCOMPARE(p.s.geral.EmailNotifyMinutos, qint16(5));
        QCOMPARE(p.s.geral.MessengerActivo, qint16(1));
        QCOMPARE(p.s.geral.SomEmail, u"dela.wav"_s);
        QCOMPARE(p.s.geral.SomTarefa, u"alarme.wav"_s);
        QCOMPARE(p.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    void chaves_por_escrever_do_utilizador_guardam_os_numeros_e_esvaziam_os_sons()
    {
        PorArrancar p;
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        p.Escrever_Ini(
            {{"emailnotify", "minutos", "20"}, {"messenger", "activo", "1"}, {"som", "email", "geral.wav"}});
        p.Passo("Ler_Configuracao");
        PorArrancar::Entrar_Como_Ana();
        p.Passo("Iniciar_Sessao");
        QCOMPARE(p.s.geral.MessengerActivo, qint16(1));
        QCOMPARE(p.s.geral.EmailNotifyMinutos, qint16(20));
        QVERIFY(p.s.geral.SomEmail.isEmpty());
    }

    void cancelar_o_login_termina_o_processo()
    {
        PorArrancar p;
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        accoes::Quando_Abrir<frmLogin>([](frmLogin &form) { form.cmdCancelar->click(); });
        p.Passo("Iniciar_Sessao");
        QVERIFY(p.s.processo.Terminou());
    }

    void com_a_base_noutro_lugar_o_ficheiro_escolhido_serve_e_fica_guardado()
    {
        SO_NUM_FICHEIRO("it was moved");
        Mudada m;
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << m.Onde();
        m.janela.Carregar();
        QVERIFY(m.s.caixas.Todas_Vistas());
        QCOMPARE(m.s.dialogos.perguntas, QStringList{u"openFile Databases|*.mdb @ "_s + m.s.Pasta()});
        QVERIFY(m.janela.isVisible() && !m.s.processo.Terminou());
        QCOMPARE(m.nova.IdiomaActual, u"PortuguesPT"_s);
        QCOMPARE(m.nova.CaminhoBD, m.Onde());
        QCOMPARE(m.Caminho_Guardado(), m.Onde());
        QVERIFY(m.janela.ListaNomes->ListCount() > 0);

        Geral proximo(m.s.Pasta()); // asks nothing any more
        Main outra(proximo, m.s.plataforma);
        outra.Carregar();
        QCOMPARE(proximo.CaminhoBD, m.Onde());
        QVERIFY(outra.isVisible());
    }

    void com_a_base_noutro_lugar_quem_tem_senha_entra()
    {
        SO_NUM_FICHEIRO("it was moved");
        Mudada m(true);
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << m.Onde();
        PorArrancar::Entrar_Como_Ana();
        m.janela.Carregar();
        QCOMPARE(m.nova.SessaoActual.Utilizador, u"Ana"_s);
        QVERIFY(m.janela.isVisible());
    }

    // A change of mind, a file that is no database, and one whose path would be cut short.
    void o_que_nao_serve_nao_se_guarda_e_pergunta_se_outra_vez()
    {
        SO_NUM_FICHEIRO("it was moved");
        Mudada m;
        const QString texto = m.s.Ficheiro(u"leiame.txt"_s);
        const QString longo = u'/' + QString(254, u'x');
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << std::nullopt;
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << texto;
        m.s.caixas.Espera_Erro(Failure::StoreError);
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << longo;
        m.s.caixas.Espera_Qualquer(16, u"Morvex"_s);
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << m.Onde();
        m.janela.Carregar();
        QVERIFY(m.s.caixas.Todas_Vistas());
        QCOMPARE(m.Caminho_Guardado(), m.Onde());
        QVERIFY(m.janela.isVisible());
    }

    void a_base_de_outro_programa_nao_fica_aberta_e_a_certa_ainda_serve()
    {
        SO_NUM_FICHEIRO("it was moved");
        Mudada m;
        const QString alheia = m.s.Ficheiro(u"alheia.mdb"_s);
        QVERIFY(QFile::copy(m.Onde(), alheia));
        Connection ligacao;
        ligacao.setConnectionString(u"Data Source='%1'"_s.arg(alheia));
        ligacao.Open();
        ligacao.execute(u"DROP TABLE TblConfig"_s, {});
        ligacao.Close();
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << alheia;
        m.s.caixas.Espera_Erro(Failure::StoreError);
        m.Espera_Oferta(answer::yes);
        m.s.dialogos.textos << m.Onde();
        m.janela.Carregar();
        QVERIFY(m.s.caixas.Todas_Vistas());
        QCOMPARE(m.nova.CaminhoBD, m.Onde());
        QCOMPARE(m.Caminho_Guardado(), m.Onde());
    }

    void recusada_a_oferta_vem_o_login_e_o_caminho_fica()
    {
        SO_NUM_FICHEIRO("it was moved");
        Mudada m;
        bool login = false;
        m.Espera_Oferta(answer::no);
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &form) {
            login = m.s.caixas.Todas_Vistas(); // the offer came first
            form.close();
        });
        m.janela.Carregar();
        QVERIFY(login);
        QVERIFY(m.s.processo.Terminou());
        QCOMPARE(m.Caminho_Guardado(), m.s.Base());
        QVERIFY(m.s.dialogos.perguntas.isEmpty());
    }

    void com_a_base_desaparecida_o_login_aparece_e_a_sua_confirmacao_termina_o_processo_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("desaparecida") << QByteArray();
        QTest::newRow("estragada") << QByteArray(5000, 'x');
    }
    void com_a_base_desaparecida_o_login_aparece_e_a_sua_confirmacao_termina_o_processo()
    {
        SO_NUM_FICHEIRO("it is gone");
        QFETCH(QByteArray, bytes);
        PorArrancar p(Sistema::Estado::Sem_Base);
        QFile base(p.s.Base());
        if (!bytes.isEmpty()) QVERIFY(base.open(QIODevice::WriteOnly) && base.write(bytes) == bytes.size());
        base.close();
        bool terminou = false;
        if (bytes.isEmpty())
            p.s.caixas.Espera_Qualquer(52, u"Morvex"_s); // answered as if by an Ok, which is no
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &form) {
            form.txtUser->setText(u"Ana"_s);
            form.cmdOk->click();
            terminou = p.s.processo.Terminou();
            form.close();
        });
        p.janela.Carregar();
        QVERIFY(terminou);
        QVERIFY(p.s.caixas.Todas_Vistas());
    }

    void a_base_de_um_programa_mais_recente_e_recusada_logo_no_arranque()
    {
        SO_NUM_FICHEIRO("its steps");
        PorArrancar p;
        p.s.geral.de.Fechar_Ligacao();
        p.s.Escrever(u"PRAGMA user_version=32000"_s);
        const QStringList antes = p.s.Linhas(u"SELECT * FROM TblConfig"_s);
        p.s.caixas.Espera_Erro(Failure::StoreError);
        VERIFICAR_FALHA(p.Passo("Ler_TblConfig"), Failure::StoreError);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QVERIFY(p.s.processo.Terminou());
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblConfig"_s), antes);
    }

    void uma_base_antiga_arranca_e_a_janela_tem_as_legendas_novas()
    {
        SO_NUM_FICHEIRO("its steps");
        PorArrancar p;
        p.s.geral.de.Fechar_Ligacao();
        Envelhecer(p.s);
        p.janela.Carregar();
        QVERIFY(p.janela.isVisible() && !p.s.processo.Terminou());
        QVERIFY(p.janela.ListaNomes->ListCount() > 0);
        QCOMPARE(p.janela.ImportarContactos->text(), p.s.Texto(274));
        QVERIFY(p.s.geral.de.Em_Dia());
    }

    // Title, list, icon

    void o_titulo_leva_nome_versao_e_utilizador_com_um_espaco_entre_eles()
    {
        PorArrancar p;
        p.s.geral.VersaoBD = u"1.0"_s;
        p.Passo("Escrever_Titulo");
        QCOMPARE(p.janela.windowTitle(), u"Morvex 1.0 "_s);
        p.s.geral.SessaoActual.Utilizador = u"Ana"_s;
        p.Passo("Escrever_Titulo");
        QCOMPARE(p.janela.windowTitle(), u"Morvex 1.0 Ana"_s);
    }

    void o_arranque_enche_a_lista_poe_o_icone_e_mostra_a_janela()
    {
        PorArrancar p;
        p.janela.Carregar();
        QCOMPARE(p.janela.ListaNomes->ListCount(), 3); // the samples
        QCOMPARE(p.janela.cmdNovo->text(), p.s.Texto(45));
        QCOMPARE(p.s.tabuleiro.historia, QStringList{u"+1 "_s + p.janela.windowTitle()});
        QCOMPARE(p.janela.windowTitle(),
                 u"Morvex %1 "_s.arg(p.s.Linhas(u"SELECT Versao FROM TblConfig"_s).join(u""_s)));
        QVERIFY(p.janela.isVisible());
    }

    void os_contactos_do_arranque_sao_os_do_utilizador_que_entrou()
    {
        PorArrancar p;
        const int ana = p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        p.s.Novo_Contacto({{u"Nome"_s, u"Dela"_s}, {u"Grupo"_s, p.s.Novo_Grupo(u"Dela"_s, ana)}});
        p.s.Novo_Contacto({{u"Nome"_s, u"Alheio"_s}, {u"Grupo"_s, p.s.Novo_Grupo(u"Outro"_s, ana + 1)}});
        PorArrancar::Entrar_Como_Ana();
        p.janela.Carregar();
        QCOMPARE(p.janela.ListaNomes->ListCount(), 4);
        QCOMPARE(p.janela.ListaNomes->List(0), u"Dela"_s);
    }

    // Into the tray

    void minimizar_sim_comeca_no_tabuleiro()
    {
        PorArrancar p;
        p.Escrever_Ini({{"arranque", "minimizar", "sim"}});
        p.janela.Carregar();
        QVERIFY(!p.janela.isVisible());
        QCOMPARE(p.s.tabuleiro.historia, QStringList{u"+1 "_s + p.janela.windowTitle()});
    }

    void minimizar_sim_com_senha_comeca_trancado()
    {
        PorArrancar p;
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s, u"11111"_s, true);
        p.Escrever_Ini({{"arranque", "minimizar", "sim"}});
        PorArrancar::Entrar_Como_Ana();
        p.janela.Carregar();
        QVERIFY(!p.janela.isVisible());
        const QString titulo = p.janela.windowTitle();
        QCOMPARE(p.s.tabuleiro.historia, (QStringList{u"+1 "_s + titulo, u"-1"_s, u"+2 "_s + titulo}));
    }

    void minimizar_sim_com_messenger_nao_mostra_frmLoading()
    {
        PorArrancar p;
        p.Escrever_Ini({{"arranque", "minimizar", "sim"}, {"messenger", "activo", "1"}});
        p.janela.Carregar();
        QVERIFY(frmLoading_A_Vista() == nullptr);
    }

    void minimizado_ou_nao_o_messenger_so_se_sincroniza_quando_se_quer_data()
    {
        QTest::addColumn<QString>("minimizar");
        QTest::addColumn<QString>("messenger");
        QTest::addColumn<QString>("presenca");
        QTest::newRow("minimised, wanted") << u"sim"_s << u"1"_s << u"10"_s;
        QTest::newRow("minimised, not wanted") << u"sim"_s << u"0"_s << u"1"_s;
        QTest::newRow("in view, wanted") << u"nao"_s << u"1"_s << u"10"_s;
        QTest::newRow("in view, not wanted") << u"nao"_s << u"0"_s << u"1"_s;
    }
    void minimizado_ou_nao_o_messenger_so_se_sincroniza_quando_se_quer()
    {
        QFETCH(QString, minimizar);
        QFETCH(QString, messenger);
        PorArrancar p;
        p.s.geral.ini.Escrever_Ini(u"arranque"_s, u"minimizar"_s, minimizar);
        p.s.geral.ini.Escrever_Ini(u"messenger"_s, u"activo"_s, messenger);
        p.s.Escrever(u"UPDATE TblLista SET Email1='ana@a.example', MSNMessenger='1' WHERE ID=1"_s);
        p.s.mensageiro.contactos = {{u"ana@a.example"_s, 10}};
        p.janela.Carregar();
        QTEST(p.s.Linhas(u"SELECT MSNMessenger FROM TblLista WHERE ID=1"_s).join(u""_s), "presenca");
        if (QWidget *carregando = frmLoading_A_Vista()) carregando->close();
    }

    void sem_messenger_nada_se_mostra()
    {
        PorArrancar p;
        p.janela.Carregar();
        QVERIFY(frmLoading_A_Vista() == nullptr);
    }

    void com_messenger_e_a_janela_a_vista_aparece_frmLoading_sem_se_esperar_por_ele()
    {
        PorArrancar p;
        p.Escrever_Ini({{"messenger", "activo", "1"}});
        p.janela.Carregar();
        QWidget *carregando = frmLoading_A_Vista();
        QVERIFY(carregando != nullptr);
        QVERIFY(!carregando->isModal() && p.janela.isVisible());
        QCOMPARE(carregando->parentWidget(), &p.janela); // which comes later, and must not hide it
        QVERIFY(qobject_cast<frmLoading *>(carregando)->Valor() >= 1);
        const QPointer<QWidget> ainda_ha(carregando);
        carregando->close();
        QTRY_VERIFY(ainda_ha.isNull());
    }

    void a_barra_de_frmLoading_comeca_em_um_e_segue_a_sincronizacao()
    {
        PorArrancar p;
        p.Escrever_Ini({{"messenger", "activo", "1"}});
        p.s.Escrever(u"DELETE FROM TblLista"_s);
        p.janela.Carregar();
        auto *carregando = qobject_cast<frmLoading *>(frmLoading_A_Vista());
        QVERIFY(carregando != nullptr);
        QCOMPARE(carregando->Valor(), 1);
        Q_EMIT p.janela.findChild<Presenca *>()->Progresso(40);
        QCOMPARE(carregando->Valor(), 40);
        carregando->close();
    }

    // What is no number counts as a wish to be warned.
    void quem_faz_anos_mostra_se_ao_comecar_e_os_temporizadores_andam_data()
    {
        QTest::addColumn<QString>("aviso");
        for (const char *aviso : {"0", "1", "", "sempre"})
            QTest::newRow(aviso) << QString::fromLatin1(aviso);
    }
    void quem_faz_anos_mostra_se_ao_comecar_e_os_temporizadores_andam()
    {
        QFETCH(QString, aviso);
        PorArrancar p;
        p.s.geral.ini.Escrever_Ini(u"aniversarios"_s, u"aviso"_s, aviso);
        p.s.Novo_Contacto({{u"Nome"_s, u"Faz anos"_s}, {u"Dia"_s, u"1"_s}, {u"Mes"_s, u"2"_s}, {u"Grupo"_s, 1}});
        bool veio = false;
        accoes::Quando_Abrir<frmAniversarios>([&](frmAniversarios &lista) {
            veio = true;
            lista.close();
        });
        p.janela.Carregar();
        QVERIFY(veio);
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(p.s.geral.temporizadores.timerPonto.Enabled());
    }

    void com_AvisoAniversarios_2_os_temporizadores_ficam_como_no_desenho()
    {
        PorArrancar p;
        p.Escrever_Ini({{"aniversarios", "aviso", "2"}});
        p.s.Novo_Contacto({{u"Nome"_s, u"Faz anos"_s}, {u"Dia"_s, u"1"_s}, {u"Mes"_s, u"2"_s}});
        p.janela.Carregar(); // no birthday list comes
        const Temporizadores &t = p.s.geral.temporizadores;
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled() && t.timerAniversarios.Enabled());
    }

    // A failing step

    void um_passo_que_falha_deixa_correr_os_seguintes_data()
    {
        QTest::addColumn<QString>("tabela");
        QTest::addColumn<int>("contactos");
        QTest::newRow("TblConfig") << u"TblConfig"_s << 3;
        QTest::newRow("TblMemos") << u"TblMemos"_s << 3;
        QTest::newRow("TblGrupos") << u"TblGrupos"_s << 0;
        QTest::newRow("TblLista") << u"TblLista"_s << 0;
        // A server that lost its texts has the program's.
        QTest::newRow("TblIdiomas") << u"TblIdiomas"_s << (Sistema::Num_Servidor() ? 3 : 0);
    }
    void um_passo_que_falha_deixa_correr_os_seguintes()
    {
        QFETCH(QString, tabela);
        QFETCH(int, contactos);
        PorArrancar p;
        p.s.Escrever(u"DROP TABLE "_s + tabela);
        p.janela.Carregar();
        QCOMPARE(p.janela.ListaNomes->ListCount(), contactos);
        QCOMPARE(p.s.tabuleiro.historia, QStringList{u"+1 "_s + p.janela.windowTitle()});
        QVERIFY(p.janela.isVisible());
        QVERIFY(!p.s.processo.Terminou());
    }

    void sem_o_texto_de_todos_os_grupos_o_filtro_comeca_pelo_primeiro_grupo()
    {
        PorArrancar p;
        const int id = p.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}, {u"Grupo"_s, 1}});
        p.s.Perder_Texto(48);
        p.janela.Carregar();
        QCOMPARE(p.janela.ComboGrupos->ListCount(), 6);
        QCOMPARE(p.janela.ComboGrupos->currentText(), u"Amigos"_s);
        QCOMPARE(p.s.geral.GrupoActual, u"1"_s);
        QCOMPARE(p.s.geral.IDContacto, id); // the only one of that group
    }

    void sem_os_grupos_o_filtro_fica_com_todos_escolhidos()
    {
        PorArrancar p;
        p.s.Escrever(u"DROP TABLE TblGrupos"_s);
        p.janela.Carregar();
        QCOMPARE(p.janela.ComboGrupos->ListCount(), 1);
        QCOMPARE(p.janela.ComboGrupos->currentText(), p.s.Texto(48));
        QCOMPARE(p.s.geral.GrupoActual, u"0"_s);
    }

    void sem_o_texto_de_frmLoading_o_messenger_sincroniza_se_na_mesma()
    {
        PorArrancar p;
        p.Escrever_Ini({{"messenger", "activo", "1"}});
        p.s.Escrever(u"UPDATE TblLista SET Email1='ana@a.example' WHERE ID=1"_s);
        p.s.Perder_Texto(242);
        p.s.mensageiro.contactos = {{u"ana@a.example"_s, 10}};
        p.janela.Carregar();
        QVERIFY(frmLoading_A_Vista() == nullptr);
        QCOMPARE(p.s.Linhas(u"SELECT MSNMessenger FROM TblLista WHERE ID=1"_s), QStringList{u"10"_s});
    }

    void sem_os_textos_ninguem_entra_sem_senha()
    {
        PorArrancar p;
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s);
        p.s.Escrever(u"DROP TABLE TblIdiomas"_s);
        PorArrancar::Entrar_Como_Ana();
        p.janela.Carregar();
        QCOMPARE(p.s.geral.SessaoActual.Utilizador, u"Ana"_s);
        QVERIFY(p.janela.isVisible());
    }

    void sem_TblUsers_o_teste_falhado_mostra_o_login()
    {
        PorArrancar p;
        p.s.Escrever(u"DROP TABLE TblUsers"_s);
        accoes::Quando_Abrir<frmLogin>([](frmLogin &form) { form.close(); });
        p.Passo("Iniciar_Sessao");
        QVERIFY(p.s.processo.Terminou());
    }
};

MORVEX_TESTE(TestArranque)
#include "test_Arranque.moc"
