// The mail cycle: which account is looked at when, what the card says, and where a click on it leads.
#include "online/CicloCorreio.h"

#include "data/Codificar_Email.h"
#include "online/frmPopupEmail.h"
#include "session/frmLogin.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "session/SystemTray.h"
#include "testlib/Accoes.h"
#include "testlib/Disparar.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace
{
constexpr int minutos = 5;

struct Programa {
    explicit Programa(int contas, qint16 activo = 1) : main(s.geral, s.plataforma)
    {
        main.Carregar(); // hidden behind nothing, and no mail yet: the switch of the shipped settings is off
        for (int i = 0; i < contas; ++i) {
            const QString nome(QChar(u'A' + i));
            QString saida;
            s.geral.de.Executar("cmdInserirEmail",
                                {nome + u"@x.example"_s, u"servidor"_s + nome, u"conta"_s + nome,
                                 Codificar_Email(u"senha"_s + nome, saida), u"0"});
        }
        s.geral.EmailNotifyActivo = activo;
        s.geral.EmailNotifyMinutos = minutos;
        s.correio.historia.clear();
    }

    CicloCorreio &Ciclo() { return *main.findChild<CicloCorreio *>(); }
    Temporizadores &T() { return s.geral.temporizadores; }

    // The first account is in hand, and its answer awaited.
    void Comecar_A_Olhar()
    {
        Ciclo().IniciarMail();
        Ciclo().VerificarConta();
    }
    // So many messages in the account in hand, and a look at it.
    void Achar(qint16 mensagens)
    {
        s.correio.mensagens = mensagens;
        Disparar(T().TimerMailNotification3);
    }

    frmPopupEmail *Popup()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *popup = qobject_cast<frmPopupEmail *>(janela); popup != nullptr && popup->isVisible())
                return popup;
        return nullptr;
    }
    QString Cartao() { return Popup() != nullptr ? Popup()->StatusLabel->text() : QString(); }

    Sistema s;
    Main main;
};

// Time that passes for the two timers of the cycle alone, in seconds, and what was done to the checker in it.
class Passagem
{
public:
    explicit Passagem(Programa &programa) : p_(programa) { Anotar(); }

    // Results are set between the handing over and the look, as the real checker would find them.
    std::function<void(int segundo)> antes_de_olhar = [](int) {};

    QStringList Correr(int ate)
    {
        for (; agora_ < ate;) {
            ++agora_;
            Tocar(p_.T().TimerMailNotification3, terceiro_, [this] { antes_de_olhar(agora_); });
            Tocar(p_.T().TimerMailNotification, minuto_, [] {});
            Anotar();
        }
        return linhas_;
    }

private:
    struct Toque {
        int id = -1;
        int quando = 0;
    };

    void Tocar(Timer &timer, Toque &toque, const std::function<void()> &antes)
    {
        if (!timer.Enabled() || agora_ < toque.quando) return;
        antes();
        toque.quando = agora_ + timer.interval() / 1000;
        Disparar(timer);
        Acertar_Ambos();
    }

    // A timer that was switched off and on again begins its interval anew.
    static void Acertar(const Timer &timer, Toque &toque, int desde)
    {
        const int id = timer.Enabled() ? static_cast<int>(timer.timerId()) : -1;
        if (id != toque.id && id != -1) toque.quando = desde + timer.interval() / 1000;
        toque.id = id;
    }

    void Anotar()
    {
        for (const QString &linha : p_.s.correio.historia)
            linhas_ << QString::number(agora_) + u' ' + linha;
        p_.s.correio.historia.clear();
        Acertar_Ambos();
    }

    void Acertar_Ambos()
    {
        Acertar(p_.T().TimerMailNotification, minuto_, agora_);
        Acertar(p_.T().TimerMailNotification3, terceiro_, agora_);
    }

    Programa &p_;
    int agora_ = 0;
    Toque minuto_, terceiro_;
    QStringList linhas_;
};

// Ticks until the timer stops by itself.
void Ate_Ao_Fim(Timer &timer)
{
    for (int tique = 0; tique < 100 && timer.Enabled(); ++tique)
        Disparar(timer);
}

QString Entrega(int segundo, char16_t conta)
{
    return u"%1 + servidor%2|conta%2|senha%2"_s.arg(segundo).arg(QChar(conta));
}
QString Paragem(int segundo) { return QString::number(segundo) + u" -"_s; }
} // namespace

class TestCicloCorreio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sem_contas_o_menu_diz_o_texto_260_e_o_clique_leva_as_opcoes()
    {
        Programa p(0);
        QSignalSpy opcoes(&p.Ciclo(), &CicloCorreio::Abrir_Opcoes);
        p.Ciclo().disconnect(&p.main); // the options themselves have tests of their own
        p.main.mnuMailNotification->trigger();
        QCOMPARE(p.Cartao(), p.s.Texto(260));
        QCOMPARE(p.Popup()->accessibleName(), p.s.Texto(260));
        QCOMPARE(p.s.geral.ErroMail, qint16{1});
        QTest::mouseClick(p.Popup(), Qt::LeftButton);
        QCOMPARE(opcoes.size(), 1);
        QVERIFY(p.Popup() == nullptr);
        QCOMPARE(p.s.shell.correios, 0);
    }

    void com_a_opcao_desligada_nada_comeca_mas_o_menu_esvazia_a_fila_e_liga_os_cinco_segundos()
    {
        Programa p(2, 0);
        p.Ciclo().IniciarMail();
        p.Ciclo().ReiniciarMail();
        QVERIFY(!p.T().TimerMailNotification.Enabled());
        QVERIFY(!p.T().TimerMailNotification3.Enabled());
        QCOMPARE(p.main.lstEmails->ListCount(), 0);

        p.main.lstEmails->AddItem(u"7"_s);
        p.main.mnuMailNotification->trigger();
        QCOMPARE(p.main.lstEmails->ListCount(), 0);
        QVERIFY(p.T().TimerMailNotification3.Enabled());
        QCOMPARE(p.s.correio.historia, (QStringList{u"-"_s, u"-"_s}));
    }

    void duas_mensagens_usam_o_texto_259_e_uma_o_258_data()
    {
        QTest::addColumn<int>("mensagens");
        QTest::addColumn<int>("texto");
        QTest::newRow("uma") << 1 << 258;
        QTest::newRow("duas") << 2 << 259;
        QTest::newRow("muitas") << 500 << 259;
    }
    void duas_mensagens_usam_o_texto_259_e_uma_o_258()
    {
        QFETCH(int, mensagens);
        QFETCH(int, texto);
        Programa p(1);
        p.Comecar_A_Olhar();
        p.s.correio.mensagens = static_cast<qint16>(mensagens);
        Disparar(p.T().TimerMailNotification3);
        QCOMPARE(p.Cartao(), QString::number(mensagens) + u' ' + p.s.Texto(texto) + u" (A@x.example)"_s);
        QCOMPARE(p.Popup()->accessibleName(), p.Cartao());
        QCOMPARE(p.s.som.tocados, QStringList{p.s.Ficheiro(u"newemail.wav"_s)});
        QCOMPARE(p.Popup()->TimerTimeout.interval(), 5000);
        QVERIFY(p.Popup()->TimerTimeout.Enabled());
    }

    void uma_conta_falhada_nao_para_o_percurso()
    {
        Programa p(2);
        p.Comecar_A_Olhar();
        p.s.correio.historia.clear();
        p.s.correio.falhou = true;
        p.s.correio.texto_erro = u"servidor desconhecido"_s;
        Disparar(p.T().TimerMailNotification3);
        QCOMPARE(p.Cartao(), u"A@x.example (servidor desconhecido)"_s);
        QCOMPARE(p.Popup()->accessibleName(), p.Cartao());
        QCOMPARE(p.s.correio.historia, (QStringList{u"-"_s, u"-"_s, u"+ servidorB|contaB|senhaB"_s}));
        QVERIFY(p.T().TimerMailNotification3.Enabled());
        QVERIFY(p.s.som.tocados.isEmpty());
    }

    void depois_da_falha_o_clique_abre_as_opcoes()
    {
        Programa p(1);
        QSignalSpy opcoes(&p.Ciclo(), &CicloCorreio::Abrir_Opcoes);
        p.Ciclo().disconnect(&p.main);
        p.Comecar_A_Olhar();
        p.s.correio.falhou = true;
        Disparar(p.T().TimerMailNotification3);
        QTest::mouseClick(p.Popup(), Qt::LeftButton);
        QCOMPARE(opcoes.size(), 1);
        QVERIFY(p.Popup() == nullptr);
    }

    void abrir_as_opcoes_esquece_a_falha_e_recolhe_o_cartao()
    {
        Programa p(1);
        p.Comecar_A_Olhar();
        p.s.correio.falhou = true;
        Disparar(p.T().TimerMailNotification3);
        QCOMPARE(p.s.geral.ErroMail, qint16{1});
        QVERIFY(p.Popup() != nullptr);
        qint16 erro = 1;
        accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
            erro = p.s.geral.ErroMail;
            opcoes.cmdCancelar->click();
        });
        p.main.Opcoes->trigger();
        QCOMPARE(erro, qint16{0});
        QTRY_VERIFY(p.Popup() == nullptr);
    }

    void a_conta_que_se_verifica_e_a_que_esta_na_mao()
    {
        Programa p(2);
        p.Comecar_A_Olhar();
        QCOMPARE(QString::number(p.s.geral.IDContaEmail), p.main.lstEmails->List(0));
        QCOMPARE(p.s.geral.de.Rs("cmdListarEmails").State(), Recordset::Closed);
        QCOMPARE(p.s.geral.de.Rs("cmdDadosEmail").State(), Recordset::Closed);
    }

    void depois_de_correio_o_clique_abre_o_programa_de_correio()
    {
        Programa p(1);
        QSignalSpy opcoes(&p.Ciclo(), &CicloCorreio::Abrir_Opcoes);
        p.Comecar_A_Olhar();
        p.Achar(1);
        QTest::mouseClick(p.Popup(), Qt::LeftButton);
        QCOMPARE(p.s.shell.correios, 1);
        QCOMPARE(opcoes.size(), 0);
    }

    void a_tecla_que_responde_ao_cartao_vale_como_o_clique()
    {
        Programa p(1);
        QVERIFY(!p.Ciclo().Responder());
        p.Comecar_A_Olhar();
        p.Achar(1);
        QTRY_VERIFY(!p.Popup()->TimerUp.Enabled()); // up
        QVERIFY(p.Ciclo().Responder());
        QCOMPARE(p.s.shell.correios, 1);
    }

    void o_menu_verifica_ja_e_diz_que_procura()
    {
        Programa p(1);
        p.main.keyCheckMail->trigger();
        QCOMPARE(p.Cartao(), u"A@x.example ("_s + p.s.Texto(261) + u')');
        QCOMPARE(p.s.correio.historia, (QStringList{u"-"_s, u"-"_s, u"+ servidorA|contaA|senhaA"_s}));
        QVERIFY(p.T().TimerVerificacaoEmail.Enabled());
        QVERIFY(!p.T().TimerMailNotification.Enabled()); // the card stopped the countdown when it loaded
        QCOMPARE(p.Popup()->TimerTimeout.interval(), 12000);
    }

    void sem_contas_a_contagem_chega_ao_fim_e_fica_suspensa()
    {
        Programa p(0);
        p.Ciclo().IniciarMail();
        QCOMPARE(p.main.lblTemporizador->text(), u"5"_s);
        Passagem tempo(p);
        QCOMPARE(tempo.Correr(1200), QStringList{Paragem(300)});
        QVERIFY(p.T().TimerMailNotification3.Enabled());
        QVERIFY(p.Popup() == nullptr);
    }

    void com_uma_conta_o_controlo_fica_activo_e_e_deixado_a_procurar()
    {
        Programa p(1);
        p.Ciclo().IniciarMail();
        Passagem tempo(p);
        QCOMPARE(tempo.Correr(1200), (QStringList{Paragem(300), Entrega(300, u'A')}));
        QCOMPARE(p.main.lstEmails->ListCount(), 1);
    }

    void com_duas_contas_a_primeira_so_se_ve_na_passagem_da_contagem()
    {
        Programa p(2);
        p.Ciclo().IniciarMail();
        Passagem tempo(p);
        QCOMPARE(tempo.Correr(326),
                 (QStringList{Paragem(300), Entrega(300, u'A'), Paragem(305), Entrega(305, u'B'),
                              Paragem(315), Entrega(315, u'B'), Paragem(325), Entrega(325, u'B')}));
    }

    void com_cinco_contas_cada_uma_tem_cinco_segundos_e_a_primeira_falta_nas_seguintes()
    {
        Programa p(5);
        p.Ciclo().IniciarMail();
        Passagem tempo(p);
        QStringList esperado{Paragem(300), Entrega(300, u'A')};
        for (const auto &[segundo, conta] : {std::pair{305, u'B'},
                                             {310, u'C'},
                                             {315, u'D'},
                                             {320, u'E'},
                                             {330, u'B'},
                                             {335, u'C'},
                                             {340, u'D'},
                                             {345, u'E'},
                                             {355, u'B'}})
            esperado << Paragem(segundo) << Entrega(segundo, conta);
        QCOMPARE(tempo.Correr(359), esperado);
    }

    void so_depois_de_um_aviso_da_ultima_conta_correm_os_minutos()
    {
        Programa p(2);
        p.Ciclo().IniciarMail();
        Passagem tempo(p);
        tempo.antes_de_olhar = [&](int segundo) {
            if (segundo == 310) p.s.correio.mensagens = 3;
        };
        QCOMPARE(tempo.Correr(606), (QStringList{Paragem(300), Entrega(300, u'A'), Paragem(305),
                                                 Entrega(305, u'B'), Paragem(310)}));
        QCOMPARE(tempo.Correr(611).mid(5), (QStringList{Paragem(610), Entrega(610, u'A')}));
    }

    void reiniciar_com_a_fila_vazia_liga_a_contagem_e_com_contas_verifica_ja()
    {
        Programa p(1);
        p.Ciclo().ReiniciarMail();
        QVERIFY(p.T().TimerMailNotification.Enabled());
        QVERIFY(p.s.correio.historia.isEmpty());
        p.main.lstEmails->AddItem(u"1"_s);
        p.Ciclo().ReiniciarMail();
        QCOMPARE(p.s.correio.historia, (QStringList{u"-"_s, u"+ servidorA|contaA|senhaA"_s}));
    }

    void a_lista_das_contas_enche_a_largura_sem_a_chave()
    {
        Programa p(2);
        bool veio = false;
        accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
            veio = true;
            const QTreeWidget &contas = *opcoes.lvEmails;
            QCOMPARE(contas.topLevelItemCount(), 2);
            QVERIFY(contas.isColumnHidden(0));
            QCOMPARE(contas.headerItem()->text(1), p.s.Texto(243).remove(u'&'));
            QCOMPARE(contas.headerItem()->text(2), p.s.Texto(244).remove(u'&'));
            for (const int coluna : {1, 2})
                QCOMPARE(contas.header()->sectionResizeMode(coluna), QHeaderView::Stretch);
            QCOMPARE(p.s.geral.de.Rs("cmdListarEmails").State(), Recordset::Closed);
            opcoes.cmdCancelar->click();
        });
        p.main.Opcoes->trigger();
        QVERIFY(veio);
    }

    void uma_conta_eliminada_nas_opcoes_e_passada_a_frente()
    {
        Programa p(2);
        p.Ciclo().IniciarMail();
        accoes::Quando_Abrir<frmOpcoes>([](frmOpcoes &opcoes) {
            opcoes.lvEmails->setCurrentItem(opcoes.lvEmails->topLevelItem(0));
            opcoes.findChild<QPushButton *>(u"cmdEliminar"_s)->click();
            opcoes.cmdCancelar->click();
        });
        p.main.Opcoes->trigger(); // its closing goes on with the queue, and no box comes
        QCOMPARE(p.s.Linhas(u"SELECT Email FROM TblEmails"_s), QStringList{u"B@x.example"_s});
        QCOMPARE(p.s.correio.historia.mid(p.s.correio.historia.size() - 2),
                 (QStringList{u"-"_s, u"+ servidorB|contaB|senhaB"_s}));
        QCOMPARE(p.main.lstEmails->ListCount(), 1);
        QVERIFY(p.T().TimerMailNotification3.Enabled());
    }

    void com_todas_as_contas_eliminadas_a_fila_volta_a_encher_se()
    {
        Programa p(2);
        p.Ciclo().IniciarMail();
        p.s.Escrever(u"DELETE FROM TblEmails"_s);
        p.Ciclo().ReiniciarMail();
        QCOMPARE(p.s.correio.historia, QStringList{u"-"_s});
        QCOMPARE(p.main.lstEmails->ListCount(), 0);
        QVERIFY(p.T().TimerMailNotification3.Enabled());
        p.T().TimerMailNotification.setEnabled(false);
        Disparar(p.T().TimerMailNotification3);
        QVERIFY(p.T().TimerMailNotification.Enabled());
        QVERIFY(p.Popup() == nullptr);
    }

    void uma_conta_eliminada_a_meio_do_percurso_nao_o_para()
    {
        Programa p(3);
        p.Comecar_A_Olhar();
        p.s.Escrever(u"DELETE FROM TblEmails WHERE Email='B@x.example'"_s);
        p.s.correio.historia.clear();
        Disparar(p.T().TimerMailNotification3);
        QCOMPARE(p.s.correio.historia, (QStringList{u"-"_s, u"+ servidorC|contaC|senhaC"_s}));
        QVERIFY(p.T().TimerMailNotification3.Enabled());
    }

    void uma_base_que_nao_responde_nao_mostra_caixa_nem_para_os_temporizadores()
    {
        Programa p(1);
        p.s.Escrever(u"DROP TABLE TblEmails"_s);
        p.Ciclo().IniciarMail(); // no box comes
        QVERIFY(p.T().TimerMailNotification.Enabled());
        p.main.lstEmails->AddItem(u"1"_s);
        p.main.lstEmails->AddItem(u"99999"_s); // no ID of an account is so large
        p.Ciclo().ReiniciarMail();
        QVERIFY(p.T().TimerMailNotification3.Enabled());
        QCOMPARE(p.main.lstEmails->ListCount(), 0);
    }

    void um_segundo_aviso_faz_subir_outra_vez_o_cartao_que_desce()
    {
        Programa p(2);
        p.Comecar_A_Olhar();
        p.Achar(1);
        const QPointer<frmPopupEmail> popup = p.Popup();
        Ate_Ao_Fim(popup->TimerUp);
        const int em_cima = popup->Top();
        Disparar(popup->TimerTimeout);
        for (int passo = 0; passo < 10; ++passo)
            Disparar(popup->TimerDown);
        QCOMPARE(popup->Top(), em_cima + 500);

        p.Achar(2);
        QCOMPARE(p.Popup(), popup.data());
        QCOMPARE(p.Cartao(), u"2 "_s + p.s.Texto(259) + u" (B@x.example)"_s);
        QVERIFY(!popup->TimerDown.Enabled());
        QVERIFY(popup->TimerUp.Enabled());
        QCOMPARE(popup->TimerUp.interval(), 10);
        Ate_Ao_Fim(popup->TimerUp);
        QCOMPARE(popup->Top(), em_cima);
        QVERIFY(popup->TimerTimeout.Enabled());
        QCOMPARE(popup->TimerTimeout.interval(), 5000);
    }

    void um_aviso_no_momento_em_que_o_cartao_ia_descer_deixa_o_onde_esta()
    {
        Programa p(2);
        p.Comecar_A_Olhar();
        p.Achar(1);
        const QPointer<frmPopupEmail> popup = p.Popup();
        Ate_Ao_Fim(popup->TimerUp);
        const int em_cima = popup->Top();
        Disparar(popup->TimerTimeout);
        p.Achar(2);
        QVERIFY(!popup->TimerDown.Enabled());
        QVERIFY(!popup->TimerUp.Enabled());
        QCOMPARE(popup->Top(), em_cima);
    }

    void um_aviso_depois_do_fim_da_descida_traz_um_cartao_novo()
    {
        Programa p(2);
        p.Comecar_A_Olhar();
        p.Achar(1);
        frmPopupEmail *const primeiro = p.Popup();
        Ate_Ao_Fim(primeiro->TimerUp);
        Disparar(primeiro->TimerTimeout);
        Ate_Ao_Fim(primeiro->TimerDown); // closed, and not yet deleted
        p.Achar(2);
        QVERIFY(p.Popup() != nullptr && p.Popup() != primeiro);
        QCOMPARE(p.Cartao(), u"2 "_s + p.s.Texto(259) + u" (B@x.example)"_s);
    }

    void os_cinco_segundos_contam_se_com_exactidao()
    {
        Programa p(1);
        p.Comecar_A_Olhar();
        p.Achar(1);
        QCOMPARE(p.Popup()->TimerTimeout.timerType(), Qt::PreciseTimer);
        QCOMPARE(p.T().TimerMailNotification3.timerType(), Qt::PreciseTimer);
    }

    void com_a_janela_trancada_o_clique_no_cartao_pede_a_senha_data()
    {
        QTest::addColumn<QString>("senha"); // empty: the login form is cancelled
        QTest::addColumn<bool>("abre");
        QTest::newRow("certa") << u"segredo"_s << true;
        QTest::newRow("cancelada") << QString() << false;
    }
    void com_a_janela_trancada_o_clique_no_cartao_pede_a_senha()
    {
        QFETCH(QString, senha);
        QFETCH(bool, abre);
        Programa p(1);
        p.Ciclo().IniciarMail();
        p.s.Novo_Utilizador(u"Ana"_s, u"segredo"_s, u"11111"_s, true);
        p.s.Entrar(u"Ana"_s);
        p.Ciclo().VerificarConta();
        p.s.correio.falhou = true;
        Disparar(p.T().TimerMailNotification3);
        auto &tray = *p.main.findChild<SystemTray *>();
        tray.Minimizar_Tray();
        QVERIFY(tray.TrayBloqueado());

        bool abriu = false;
        accoes::Quando_Abrir<frmLogin>([&](frmLogin &login) {
            if (abre)
                accoes::Quando_Abrir<frmOpcoes>([&](frmOpcoes &opcoes) {
                    abriu = true;
                    opcoes.cmdCancelar->click();
                });
            login.txtPass->setText(senha);
            (abre ? login.cmdOk : login.cmdCancelar)->click();
        });
        bool presa = false; // a form that nobody waits for would hold the test up for ever
        QTimer::singleShot(10000, &p.main, [&] {
            presa = true;
            if (QWidget *form = QApplication::activeModalWidget()) form->close();
        });
        QTest::mouseClick(p.Popup(), Qt::LeftButton);
        QVERIFY(!presa);
        QCOMPARE(abriu, abre);
        QCOMPARE(tray.TrayBloqueado(), !abre);
        QCOMPARE(p.main.isVisible(), abre);
    }

    void o_som_do_utilizador_toca_se_o_escolheu()
    {
        Programa p(1);
        p.s.geral.SomEmail = u"/musica/sino.wav"_s;
        p.Comecar_A_Olhar();
        p.Achar(1);
        QCOMPARE(p.s.som.tocados, QStringList{u"/musica/sino.wav"_s});
    }

    void parar_e_comecar_deixa_os_cinco_segundos_a_espera_da_contagem()
    {
        Programa p(1);
        p.Comecar_A_Olhar();
        p.T().Gerir_Temporizadores(u"stop"_s);
        p.T().Gerir_Temporizadores(u"start"_s);
        QVERIFY(p.T().TimerMailNotification.Enabled());
        QVERIFY(!p.T().TimerMailNotification3.Enabled());
    }

    void o_cartao_mede_2610_por_1665_e_vai_se_embora_sozinho()
    {
        Programa p(0);
        p.main.mnuMailNotification->trigger();
        QPointer<frmPopupEmail> popup = p.Popup();
        QCOMPARE(popup->size(), QSize(174, 111));
        for (int i = 0; i < 40 && popup->TimerUp.Enabled(); ++i)
            Disparar(popup->TimerUp);
        Disparar(popup->TimerTimeout);
        QVERIFY(popup->TimerDown.Enabled());
        for (int i = 0; i < 40 && popup; ++i) {
            Disparar(popup->TimerDown);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QVERIFY(popup.isNull());
    }
};

MORVEX_TESTE(TestCicloCorreio)
#include "test_CicloCorreio.moc"
