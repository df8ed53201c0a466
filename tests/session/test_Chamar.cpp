// A second start of the program on the same folder: what comes forward, and what stays closed.
#include "reminders/frmTarefas.h"
#include "session/frmLogin.h"
#include "session/frmOpcoes.h"
#include "session/frmSobre.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Disparar.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
void Entrar(const frmLogin &login)
{
    if (login.txtUser->isEnabled()) login.txtUser->setText(u"Ana"_s);
    login.txtPass->setText(u"x"_s);
    login.cmdOk->click();
}

// A started program whose window was then hidden in the tray.
struct Escondido {
    explicit Escondido(bool pedir_senha)
    {
        s.Novo_Utilizador(u"Ana"_s, u"x"_s, u"11111"_s, pedir_senha);
        accoes::Quando_Abrir<frmLogin>(Entrar);
        janela.Carregar();
        janela.close();
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
};
} // namespace

class TestChamar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escondida_no_tabuleiro_volta()
    {
        Escondido e(false);
        QVERIFY(!e.janela.isVisible());
        e.janela.Chamar();
        QVERIFY(e.janela.isVisible());
        QVERIFY(QTest::qWaitForWindowActive(&e.janela));
    }

    void minimizada_volta_ao_tamanho_normal()
    {
        Escondido e(false);
        e.janela.showMinimized();
        e.janela.Chamar();
        QVERIFY(e.janela.isVisible() && !e.janela.isMinimized());
    }

    void trancada_volta_so_pelo_login()
    {
        Escondido e(true);
        accoes::Quando_Abrir<frmLogin>([](frmLogin &login) { login.cmdCancelar->click(); });
        e.janela.Chamar();
        QVERIFY(!e.janela.isVisible());
        accoes::Quando_Abrir<frmLogin>(Entrar);
        e.janela.Chamar();
        QVERIFY(e.janela.isVisible());
    }

    void com_o_login_do_inicio_aberto_a_janela_fica_fechada()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        Main janela(s.geral, s.plataforma);
        bool apareceu = true;
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &login) {
            janela.Chamar();
            apareceu = janela.isVisible();
            QVERIFY(QTest::qWaitForWindowActive(&login));
            Entrar(login);
        });
        janela.Carregar();
        QVERIFY(!apareceu);
        QVERIFY(janela.isVisible());
    }

    void um_formulario_que_espera_resposta_vem_a_frente()
    {
        Escondido e(false);
        e.janela.Chamar();
        accoes::Quando_Abrir<frmSobre>([&](frmSobre &sobre) {
            e.janela.activateWindow();
            e.janela.Chamar();
            QVERIFY(QTest::qWaitForWindowActive(&sobre));
            sobre.accept();
        });
        e.janela.Sobre->trigger();
    }

    void o_aviso_de_uma_tarefa_responde_a_segunda_partida_e_ao_icone_data()
    {
        QTest::addColumn<bool>("pelo_icone");
        QTest::newRow("segunda partida") << false;
        QTest::newRow("clique no ícone") << true;
    }
    void o_aviso_de_uma_tarefa_responde_a_segunda_partida_e_ao_icone()
    {
        QFETCH(bool, pelo_icone);
        Escondido e(false);
        e.s.geral.de.Executar("cmdAdicionarTarefa", {u"Regar"_s, u"31-01-2027"_s, u"08:00"_s,
                                                     e.s.geral.SessaoActual.IdUtilizador, u"1"_s});
        Disparar(e.s.geral.temporizadores.timerTarefas);
        bool respondeu = false;
        accoes::Quando_Abrir<frmTarefas>([&](frmTarefas &cartao) {
            respondeu = cartao.txtTarefa->toPlainText() == u"Regar"_s;
            cartao.cmdImprimir->click();
        });
        pelo_icone ? e.s.tabuleiro.Clicar(Tray::Look::Picture1) : e.janela.Chamar();
        QVERIFY(respondeu);
        QVERIFY(!e.janela.isVisible());
        // Once it is on its way down there is nothing left to answer.
        pelo_icone ? e.s.tabuleiro.Clicar(Tray::Look::Picture1) : e.janela.Chamar();
        QVERIFY(e.janela.isVisible());
    }

    void o_cartao_do_correio_responde_a_segunda_partida()
    {
        Escondido e(false);
        e.s.geral.ErroMail = 0;
        e.janela.mnuMailNotification->trigger(); // an empty queue of accounts leads to the options
        bool abriu = false;
        accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
            abriu = true;
            opcoes.cmdCancelar->click();
        });
        e.janela.Chamar();
        QVERIFY(abriu);
    }
};

MORVEX_TESTE(TestChamar)
#include "test_Chamar.moc"
