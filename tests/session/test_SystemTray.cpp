// The tray: hiding, locking, and the ways back.
#include "session/frmLogin.h"
#include "session/Main.h"
#include "session/SystemTray.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr auto Picture1 = Tray::Look::Picture1;
constexpr auto Picture2 = Tray::Look::Picture2;

// The window of a user, shown, with its icon in the tray.
struct Aberta {
    explicit Aberta(bool pedir_senha)
    {
        s.Novo_Utilizador(u"Rui"_s, u"outra"_s);
        s.Novo_Utilizador(u"Ana"_s, u"segredo"_s, u"11111"_s, pedir_senha);
        s.Entrar(u"Ana"_s);
        janela.setWindowTitle(u"Morvex 1.0 Ana"_s);
        tray.Adicionar_Icone(janela.windowTitle());
        janela.show();
    }

    // What happened to the icon since the window was hidden, or since the last question.
    QStringList Historia()
    {
        QStringList historia = s.tabuleiro.historia;
        s.tabuleiro.historia.clear();
        return historia;
    }

    void Esconder()
    {
        tray.Minimizar_Tray();
        Historia();
    }

    // The entries of the icon's menu that somebody could choose.
    qsizetype Entradas_Vivas() const
    {
        const auto entradas = s.tabuleiro.menu->actions();
        return std::count_if(entradas.begin(), entradas.end(), [](const QAction *entrada) {
            return !entrada->isSeparator() && entrada->isEnabled();
        });
    }

    // Clicks the locked icon and answers the login form that comes.
    void Reabrir_Com(const std::function<void(frmLogin &)> &accao)
    {
        accoes::Quando_Abrir<frmLogin>(accao);
        s.tabuleiro.Clicar(Picture2);
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
    SystemTray &tray = *janela.findChild<SystemTray *>();
};

bool Minimizada(const QWidget &janela) { return janela.isVisible() && janela.isMinimized(); }
bool Aberta_No_Ecra(const QWidget &janela) { return janela.isVisible() && !janela.isMinimized(); }

// The same on a desktop where nobody shows the icon.
struct SemHospedeiro : Aberta {
    explicit SemHospedeiro(bool pedir_senha) : Aberta(pedir_senha) { s.tabuleiro.Vai_Se_O_Hospedeiro(); }

    // Brings the window back as a task list does, and answers the login form that comes.
    void Trazer_Da_Barra(const std::function<void(frmLogin &)> &accao)
    {
        accoes::Quando_Abrir<frmLogin>(accao);
        janela.showNormal();
        QCoreApplication::processEvents();
    }
    // The colours of the window as it would be seen, apart from its frame: one alone where it is covered.
    qsizetype Cores()
    {
        const QImage retrato = janela.grab().toImage();
        QSet<QRgb> cores;
        for (int y = 0; y < retrato.height(); y += 5)
            for (int x = 0; x < retrato.width(); x += 5)
                cores << retrato.pixel(x, y);
        return cores.size();
    }
};

void Dar_Senha(frmLogin &form, const QString &senha)
{
    form.txtPass->setText(senha);
    form.cmdOk->click();
}
} // namespace

class TestSystemTray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Without the password

    void o_icone_leva_a_dica_e_o_menu_do_tabuleiro()
    {
        Aberta a(false);
        QVERIFY(!a.tray.TrayBloqueado());
        QCOMPARE(a.Historia(), QStringList{u"+1 Morvex 1.0 Ana"_s});
        QCOMPARE(a.s.tabuleiro.menu, a.janela.MenuSystemTray);
        QStringList entradas;
        for (const QAction *entrada : a.s.tabuleiro.menu->actions())
            if (!entrada->isSeparator()) entradas << entrada->objectName();
        QCOMPARE(entradas, (QStringList{u"SystemTrayAbrirMorvex"_s, u"SystemTrayProcurar"_s,
                                        u"SystemTrayNovaTarefa"_s, u"SystemTrayListaTarefas"_s,
                                        u"SystemTrayMemo"_s, u"SystemTraySobre"_s, u"SystemTraySair"_s}));
    }

    void esconder_sem_senha_guarda_o_icone_e_um_clique_traz_a_janela()
    {
        Aberta a(false);
        a.Historia();
        a.tray.Minimizar_Tray();
        QVERIFY(!a.janela.isVisible());
        QVERIFY(!a.tray.TrayBloqueado());
        a.s.tabuleiro.Clicar(Picture1);
        QVERIFY(a.janela.isVisible());
        QVERIFY(a.Historia().isEmpty());
    }

    void um_clique_com_a_janela_a_vista_tira_a_de_minimizada_e_tra_la_a_frente()
    {
        Aberta a(false);
        a.janela.showMinimized();
        a.s.tabuleiro.Clicar(Picture1);
        QVERIFY(a.janela.isVisible() && !a.janela.isMinimized());
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));

        QWidget outra;
        outra.show();
        outra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&outra));
        a.s.tabuleiro.Clicar(Picture1);
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
    }

    void AbrirMorvex_sem_senha_mostra_a_janela()
    {
        Aberta a(false);
        a.Esconder();
        a.janela.SystemTrayAbrirMorvex->trigger();
        QVERIFY(a.janela.isVisible());
        QVERIFY(a.Historia().isEmpty());
    }

    void AbrirMorvex_com_a_janela_a_vista_nada_faz()
    {
        Aberta a(true);
        a.Historia();
        a.janela.SystemTrayAbrirMorvex->trigger(); // no login form comes
        QVERIFY(a.janela.isVisible());
        QVERIFY(a.Historia().isEmpty());
    }

    void o_botao_direito_poe_a_janela_a_frente_antes_do_menu()
    {
        Aberta a(false);
        QWidget outra;
        outra.show();
        outra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&outra));
        Q_EMIT a.s.tabuleiro.menuAboutToOpen(Picture1);
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
        a.Esconder();
        Q_EMIT a.s.tabuleiro.menuAboutToOpen(Picture1);
        QVERIFY(!a.janela.isVisible());
    }

    // Whoever is at the screen when the preference is set has seen the window open: the icon is still the
    // ordinary one, and its click asks nothing.
    void pedida_a_senha_com_a_janela_escondida_o_clique_ainda_a_traz()
    {
        Aberta a(false);
        a.Esconder();
        a.s.geral.SessaoActual.PedirPassSystemTray = true;
        bool perguntou = false;
        QTimer::singleShot(0, &a.janela, [&] {
            perguntou = QApplication::activeModalWidget() != nullptr;
            if (perguntou) QApplication::activeModalWidget()->close();
        });
        a.s.tabuleiro.Clicar(Picture1);
        QCoreApplication::processEvents();
        QVERIFY(!perguntou);
        QVERIFY(a.janela.isVisible());
        QVERIFY(!a.tray.TrayBloqueado());
        QVERIFY(a.Historia().isEmpty());
    }

    void retirada_a_senha_com_a_janela_trancada_o_esconder_seguinte_nao_tranca()
    {
        Aberta a(true);
        a.Esconder();
        a.s.geral.SessaoActual.PedirPassSystemTray = false;
        a.s.tabuleiro.Clicar(Picture2);
        QVERIFY(a.janela.isVisible());
        a.tray.Minimizar_Tray();
        QVERIFY(!a.janela.isVisible());
        QVERIFY(!a.tray.TrayBloqueado());
    }

    // With the password

    void esconder_com_senha_tranca_e_troca_o_icone()
    {
        Aberta a(true);
        a.Historia();
        a.tray.Minimizar_Tray();
        QVERIFY(!a.janela.isVisible());
        QVERIFY(a.tray.TrayBloqueado());
        QCOMPARE(a.Historia(), (QStringList{u"-1"_s, u"+2 Morvex 1.0 Ana"_s}));
        QCOMPARE(a.s.tabuleiro.menu, a.janela.MenuSystemTray);
    }

    void a_senha_certa_traz_o_icone_com_a_legenda_do_login_e_a_janela()
    {
        Aberta a(true);
        a.Esconder();
        const auto conferir = [&](frmLogin &form) {
            QCOMPARE(form.txtUser->text(), u"Ana"_s);
            QVERIFY(!form.txtUser->isEnabled());
            QVERIFY(!a.s.geral.temporizadores.timerTarefas.Enabled());
            Dar_Senha(form, u"segredo"_s);
        };
        a.Reabrir_Com(conferir);
        QVERIFY(a.janela.isVisible());
        QCOMPARE(a.Historia(), (QStringList{u"-2"_s, u"+1 Morvex - Login"_s}));
        QVERIFY(!a.tray.TrayBloqueado());
        QVERIFY(a.s.geral.temporizadores.timerTarefas.Enabled() &&
                a.s.geral.temporizadores.timerPonto.Enabled());
        QCOMPARE(a.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Open); // the next use closes it
        QVERIFY(!a.s.processo.Terminou());
    }

    void a_dica_do_login_fica_ate_o_icone_voltar_a_ser_posto()
    {
        Aberta a(true);
        a.Esconder();
        a.Reabrir_Com([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        a.Historia();
        a.s.geral.SessaoActual.PedirPassSystemTray = false;
        a.tray.Minimizar_Tray();
        a.s.tabuleiro.Clicar(Picture1);
        QVERIFY(a.Historia().isEmpty()); // nothing touched it
        a.tray.Adicionar_Icone(a.janela.windowTitle());
        QCOMPARE(a.Historia(), QStringList{u"+1 Morvex 1.0 Ana"_s});
    }

    void a_senha_de_outro_utilizador_reabre_e_a_sessao_fica_com_o_primeiro()
    {
        Aberta a(true);
        a.Esconder();
        const QString id = a.s.geral.SessaoActual.IdUtilizador;
        a.Reabrir_Com([](frmLogin &form) {
            form.txtUser->setText(u"Rui"_s);
            Dar_Senha(form, u"outra"_s);
        });
        QVERIFY(a.janela.isVisible());
        QCOMPARE(a.s.geral.SessaoActual.Utilizador, u"Ana"_s);
        QCOMPARE(a.s.geral.SessaoActual.IdUtilizador, id);
        QVERIFY(a.s.geral.SessaoActual.PedirPassSystemTray);
    }

    void a_senha_errada_deixa_a_janela_escondida_e_o_login_aberto()
    {
        Aberta a(true);
        a.Esconder();
        a.s.caixas.Espera(a.s.Texto(101), 16, u"Login"_s);
        bool aberto = false;
        a.Reabrir_Com([&](frmLogin &form) {
            Dar_Senha(form, u"errada"_s);
            aberto = form.isVisible() && !a.janela.isVisible();
            form.cmdCancelar->click();
        });
        QVERIFY(aberto);
        QVERIFY(a.s.caixas.Todas_Vistas());
    }

    void cancelar_a_reabertura_deixa_a_janela_no_tabuleiro_e_os_temporizadores_a_andar_data()
    {
        QTest::addColumn<bool>("pelo_botao");
        QTest::newRow("cancelar") << true;
        QTest::newRow("escape") << false;
    }
    void cancelar_a_reabertura_deixa_a_janela_no_tabuleiro_e_os_temporizadores_a_andar()
    {
        QFETCH(bool, pelo_botao);
        Aberta a(true);
        a.Esconder();
        a.Reabrir_Com([&](frmLogin &form) {
            if (pelo_botao)
                form.cmdCancelar->click();
            else
                QTest::keyClick(&form, Qt::Key_Escape);
        });
        QVERIFY(!a.janela.isVisible());
        QVERIFY(a.tray.TrayBloqueado());
        QVERIFY(a.Historia().isEmpty());
        QVERIFY(!a.s.processo.Terminou());
        QVERIFY(a.s.geral.temporizadores.timerTarefas.Enabled() &&
                a.s.geral.temporizadores.timerPonto.Enabled());
    }

    void AbrirMorvex_com_o_icone_trancado_pede_a_senha()
    {
        Aberta a(true);
        a.Esconder();
        Q_EMIT a.s.tabuleiro.menuAboutToOpen(Picture2);
        QVERIFY(!a.janela.isVisible());
        accoes::Quando_Abrir<frmLogin>([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        a.janela.SystemTrayAbrirMorvex->trigger();
        QVERIFY(a.janela.isVisible());
        QCOMPARE(a.Historia(), (QStringList{u"-2"_s, u"+1 Morvex - Login"_s}));
    }

    void com_o_login_aberto_mais_mensagens_do_icone_caem()
    {
        Aberta a(true);
        a.Esconder();
        QCOMPARE(a.Entradas_Vivas(), 7);
        qsizetype abertos = 0;
        qsizetype vivas = 0;
        a.Reabrir_Com([&](frmLogin &form) {
            vivas = a.Entradas_Vivas();
            a.s.tabuleiro.Clicar(Picture2);
            a.s.tabuleiro.Clicar(Picture1);
            a.janela.SystemTrayAbrirMorvex->trigger();
            const QWidgetList janelas = QApplication::topLevelWidgets();
            abertos = std::count_if(janelas.begin(), janelas.end(), [](const QWidget *w) {
                return qobject_cast<const frmLogin *>(w) != nullptr;
            });
            QVERIFY(!a.janela.isVisible());
            form.cmdCancelar->click();
        });
        QCOMPARE(abertos, 1);
        QCOMPARE(vivas, 0);
        QCOMPARE(a.Entradas_Vivas(), 7);
        a.Reabrir_Com([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        QVERIFY(a.janela.isVisible()); // afterwards they count again
    }

    // Without a host

    void sem_hospedeiro_o_que_esconderia_minimiza_data()
    {
        QTest::addColumn<QString>("caminho");
        for (const char *caminho : {"Fechar", "Escape", "Escape na procura", "fechar a janela"})
            QTest::newRow(caminho) << QString::fromLatin1(caminho);
    }
    void sem_hospedeiro_o_que_esconderia_minimiza()
    {
        QFETCH(QString, caminho);
        SemHospedeiro a(false);
        QVERIFY(QTest::qWaitForWindowActive(&a.janela));
        if (caminho == u"Fechar") a.janela.Fechar->trigger();
        if (caminho == u"Escape") {
            a.janela.ListaNomes->setFocus();
            QTest::keyClick(a.janela.ListaNomes, Qt::Key_Escape);
        }
        if (caminho == u"Escape na procura") QTest::keyClick(a.janela.txtProcura, Qt::Key_Escape);
        if (caminho == u"fechar a janela") a.janela.close();
        QVERIFY(Minimizada(a.janela));
        QVERIFY(!a.tray.TrayBloqueado());
        a.janela.showNormal();
        QCoreApplication::processEvents();
        QVERIFY(Aberta_No_Ecra(a.janela)); // and nothing was asked
    }

    void o_hospedeiro_que_chega_depois_esconde_a_minimizada_e_o_clique_tra_la()
    {
        SemHospedeiro a(false);
        a.tray.Minimizar_Tray();
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(!a.janela.isVisible());
        a.s.tabuleiro.Clicar(Picture1);
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void a_que_ja_foi_trazida_nao_se_esconde_quando_o_hospedeiro_chega()
    {
        SemHospedeiro a(false);
        a.tray.Minimizar_Tray();
        a.janela.showNormal();
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void a_que_o_utilizador_minimizou_nao_se_esconde_quando_o_hospedeiro_chega()
    {
        SemHospedeiro a(false);
        a.tray.Minimizar_Tray();
        a.janela.showNormal();
        a.janela.showMinimized();
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(Minimizada(a.janela));
    }

    void o_hospedeiro_que_morre_devolve_a_janela_a_barra_e_o_que_volta_esconde_a()
    {
        Aberta a(false);
        a.Esconder();
        a.s.tabuleiro.Vai_Se_O_Hospedeiro();
        QVERIFY(Minimizada(a.janela));
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(!a.janela.isVisible());
        a.s.tabuleiro.Vai_Se_O_Hospedeiro();
        a.janela.showNormal();
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void o_hospedeiro_que_morre_deixa_a_vista_a_janela_que_la_esta()
    {
        Aberta a(false);
        a.s.tabuleiro.Vai_Se_O_Hospedeiro();
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void o_hospedeiro_que_morre_nao_traz_uma_janela_que_nunca_veio()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        s.tabuleiro.Vai_Se_O_Hospedeiro();
        QVERIFY(!janela.isVisible());
    }

    void a_que_o_icone_trouxe_e_o_utilizador_minimizou_nao_se_esconde()
    {
        Aberta a(false);
        a.Esconder();
        a.s.tabuleiro.Clicar(Picture1);
        a.s.tabuleiro.Vai_Se_O_Hospedeiro();
        a.janela.showMinimized();
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(Minimizada(a.janela));
    }

    void o_hospedeiro_que_morre_nao_destranca()
    {
        Aberta a(true);
        a.Esconder();
        a.s.tabuleiro.Vai_Se_O_Hospedeiro();
        QVERIFY(Minimizada(a.janela));
        QVERIFY(a.tray.TrayBloqueado());
        a.s.tabuleiro.Chega_Hospedeiro();
        QVERIFY(!a.janela.isVisible());
        QVERIFY(a.tray.TrayBloqueado());
        a.Reabrir_Com([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void a_minimizada_com_senha_tranca_e_nada_mostra()
    {
        SemHospedeiro a(true);
        QVERIFY(a.Cores() > 1);
        a.Historia();
        a.tray.Minimizar_Tray();
        QVERIFY(Minimizada(a.janela));
        QVERIFY(a.tray.TrayBloqueado());
        QCOMPARE(a.Historia(), (QStringList{u"-1"_s, u"+2 Morvex 1.0 Ana"_s})); // for the host that may come
        QCOMPARE(a.Cores(), 1);
    }

    void a_trancada_na_barra_so_volta_com_a_senha()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        bool em_baixo = false;
        a.Trazer_Da_Barra([&](frmLogin &form) {
            em_baixo = Minimizada(a.janela);
            Dar_Senha(form, u"segredo"_s);
        });
        QVERIFY(em_baixo);
        QVERIFY(Aberta_No_Ecra(a.janela));
        QVERIFY(!a.tray.TrayBloqueado());
        QVERIFY(a.Cores() > 1);
    }

    void a_trancada_que_muda_de_tamanho_continua_tapada()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        a.janela.resize(a.janela.size() + QSize(120, 90));
        QCoreApplication::processEvents();
        QCOMPARE(a.Cores(), 1);
    }

    void trancada_outra_vez_tambem_o_que_veio_a_frente_fica_tapado()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        a.Trazer_Da_Barra([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        a.janela.centralWidget()->raise();
        a.tray.Minimizar_Tray();
        QCOMPARE(a.Cores(), 1);
    }

    void cancelar_deixa_a_trancada_na_barra_e_a_vez_seguinte_pergunta_de_novo()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        for (int vez = 0; vez < 2; ++vez) {
            a.Trazer_Da_Barra([](frmLogin &form) { form.cmdCancelar->click(); });
            QVERIFY(Minimizada(a.janela));
            QVERIFY(a.tray.TrayBloqueado());
        }
        QVERIFY(!a.s.processo.Terminou());
    }

    void com_o_login_aberto_a_trancada_nao_sobe()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        bool em_baixo = false;
        a.Trazer_Da_Barra([&](frmLogin &form) {
            a.janela.showNormal();
            QCoreApplication::processEvents();
            em_baixo = Minimizada(a.janela) && form.isVisible();
            form.cmdCancelar->click();
        });
        QVERIFY(em_baixo);
    }

    void comecar_outra_vez_com_a_trancada_na_barra_pede_a_senha()
    {
        SemHospedeiro a(true);
        a.tray.Minimizar_Tray();
        accoes::Quando_Abrir<frmLogin>([](frmLogin &form) { Dar_Senha(form, u"segredo"_s); });
        a.janela.Chamar();
        QVERIFY(Aberta_No_Ecra(a.janela));
    }

    void arrancar_minimizado_sem_hospedeiro_deixa_a_janela_na_barra()
    {
        Sistema s;
        s.tabuleiro.Vai_Se_O_Hospedeiro();
        s.geral.ini.Escrever_Ini(u"arranque"_s, u"minimizar"_s, u"sim"_s);
        Main janela(s.geral, s.plataforma);
        janela.Carregar();
        QVERIFY(Minimizada(janela));
    }
};

MORVEX_TESTE(TestSystemTray)
#include "test_SystemTray.moc"
