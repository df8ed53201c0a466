// The main window: its timers, its dot, its keys, and that closing it only hides it.
#include "contacts/EdicaoContacto.h"
#include "contacts/frmNovoGrupo.h"
#include "contacts/Grupos.h"
#include "contacts/ListaContactos.h"
#include "contacts/Pesquisa.h"
#include "contacts/ProcuraRapida.h"
#include "controls/Controls.h"
#include "controls/Units.h"
#include "data/frmSeleccionarIdioma.h"
#include "printing/frmImprimir.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "session/frmLogin.h"
#include "session/frmNovoUser.h"
#include "session/Main.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/Sincronizador.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/FotografiaNaBase.h"
#include "testlib/MemoriaSolta.h"
#include "testlib/Teste.h"

#include <QPainter>

using namespace Qt::StringLiterals;

class TestMain : public QObject
{
    Q_OBJECT

    static void Tique(Timer &timer) { QVERIFY(QMetaObject::invokeMethod(&timer, "timeout")); }

    static QColor Cor_Do_Ponto(const Main &janela)
    {
        return janela.PontoTarefas->palette().color(QPalette::Window);
    }

    // The two timers that a form stops and starts; they always go together.
    static bool A_Andar(const Sistema &s)
    {
        return s.geral.temporizadores.timerTarefas.Enabled() && s.geral.temporizadores.timerPonto.Enabled();
    }
    static bool Parados(const Sistema &s)
    {
        return !s.geral.temporizadores.timerTarefas.Enabled() && !s.geral.temporizadores.timerPonto.Enabled();
    }

    // Counts the clicks of a button whose work is another's matter.
    struct Cliques {
        explicit Cliques(QAbstractButton *botao)
            : espia((botao->disconnect(SIGNAL(clicked(bool))), botao), &QAbstractButton::clicked)
        {
        }
        qsizetype size() const { return espia.size(); }
        QSignalSpy espia;
    };

private Q_SLOTS:
    void depois_do_arranque_o_que_ele_leu_volta_ao_sistema()
    {
        if (!MemoriaSolta::Mede_Se()) QSKIP("the memory of a process is read from /proc");
        ComJanela c;
        const MemoriaSolta solta;
        const double antes = MemoriaSolta::MB();
        c.janela.Carregar();
        QVERIFY(MemoriaSolta::MB() > antes - 0.25 * MemoriaSolta::MB_soltos); // not while the window comes
        QTRY_VERIFY(MemoriaSolta::MB() < antes - 0.75 * MemoriaSolta::MB_soltos);
        QVERIFY(solta.Inteiro());
    }

    // Timers

    void cada_temporizador_tem_o_seu_intervalo_e_estado_do_desenho()
    {
        const Sistema s;
        const Temporizadores &t = s.geral.temporizadores;
        struct {
            const Timer &timer;
            int intervalo;
            bool ligado;
        } const tabela[]{{t.timerTarefas, 1000, true},
                         {t.timerPonto, 1000, true},
                         {t.timerAniversarios, 59000, true},
                         {t.TimerMailNotification, 60000, false},
                         {t.TimerMailNotification3, 5000, false},
                         {t.TimerVerificacaoEmail, 11000, false},
                         {t.TimerStatusOfContact, 5000, false},
                         {t.TimerDownload, 60000, true}};
        for (const auto &linha : tabela) {
            QCOMPARE(linha.timer.interval(), linha.intervalo);
            QCOMPARE(linha.timer.Enabled(), linha.ligado);
            QVERIFY(!linha.timer.isSingleShot());
        }
    }

    void stop_para_os_quatro_e_deixa_os_outros()
    {
        Sistema s;
        Temporizadores &t = s.geral.temporizadores;
        for (Timer *timer : {&t.TimerMailNotification, &t.TimerMailNotification3, &t.TimerVerificacaoEmail,
                             &t.TimerStatusOfContact})
            timer->setEnabled(true);
        t.Gerir_Temporizadores(u"stop"_s);
        QVERIFY(Parados(s));
        QVERIFY(!t.TimerMailNotification.Enabled() && !t.TimerMailNotification3.Enabled());
        QVERIFY(t.timerAniversarios.Enabled() && t.TimerVerificacaoEmail.Enabled());
        QVERIFY(t.TimerStatusOfContact.Enabled() && t.TimerDownload.Enabled());
    }

    void start_liga_dois_e_chama_IniciarMail()
    {
        Sistema s;
        Temporizadores &t = s.geral.temporizadores;
        t.Gerir_Temporizadores(u"stop"_s);
        bool ligados_antes = false;
        int chamadas = 0;
        connect(&t, &Temporizadores::IniciarMail, &t, [&] {
            ++chamadas;
            ligados_antes = A_Andar(s);
        });
        t.Gerir_Temporizadores(u"start"_s);
        QCOMPARE(chamadas, 1);
        QVERIFY(ligados_antes);
        QVERIFY(!t.TimerMailNotification.Enabled() && !t.TimerMailNotification3.Enabled());
    }

    void outra_palavra_nada_faz()
    {
        Sistema s;
        Temporizadores &t = s.geral.temporizadores;
        const QSignalSpy mail(&t, &Temporizadores::IniciarMail);
        for (const QString &accao : {u""_s, u"Stop"_s, u"STOP"_s, u"pause"_s})
            t.Gerir_Temporizadores(accao);
        QVERIFY(A_Andar(s));
        t.Gerir_Temporizadores(u"stop"_s);
        t.Gerir_Temporizadores(u"Start"_s);
        QVERIFY(Parados(s));
        QCOMPARE(mail.size(), 0);
    }

    void um_formulario_para_os_temporizadores_ao_abrir_e_liga_os_ao_fechar()
    {
        Sistema s;
        s.geral.SessaoActual.Utilizador = u"Ana"_s;
        const QSignalSpy mail(&s.geral.temporizadores, &Temporizadores::IniciarMail);
        frmLogin form(s.geral, s.plataforma);
        QVERIFY(Parados(s));
        QCOMPARE(mail.size(), 0);
        form.show();
        form.close();
        QVERIFY(A_Andar(s));
        QCOMPARE(mail.size(), 1);
    }

    void a_escolha_da_lingua_liga_so_os_seus_dois_ao_fechar()
    {
        Sistema s;
        const QSignalSpy mail(&s.geral.temporizadores, &Temporizadores::IniciarMail);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        QVERIFY(Parados(s));
        form.show();
        form.close();
        QVERIFY(A_Andar(s));
        QCOMPARE(mail.size(), 0);
    }

    // The list after synchronising

    void o_que_a_sincronizacao_muda_le_se_de_novo_e_a_escolha_fica()
    {
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        const auto novo = [&](const QString &nome, int ID) {
            const int dado = s.Novo_Contacto({{u"Nome"_s, nome}, {u"Grupo"_s, 1}});
            s.Escrever(u"UPDATE TblLista SET ID=%1 WHERE ID=%2"_s.arg(ID).arg(dado));
        };
        novo(u"Ana"_s, 1);
        novo(u"Rui"_s, 2);
        Main janela(s.geral, s.plataforma);
        janela.findChild<ListaContactos *>()->Carregar_Grupos_Ao_Iniciar();
        auto &sincronizador = *janela.findChild<Sincronizador *>();
        s.Escrever(u"UPDATE TblLista SET Nome='Bia' WHERE ID=2"_s);
        Q_EMIT sincronizador.ContactosMudados();
        QCOMPARE(janela.ListaNomes->ListIndex(), -1); // nobody was chosen
        QCOMPARE(janela.ListaNomes->List(1), u"Bia"_s);
        janela.ListaNomes->setListIndex(1);
        s.Escrever(u"UPDATE TblLista SET Nome='Abel' WHERE ID=2"_s); // now the first
        Q_EMIT sincronizador.ContactosMudados();
        QCOMPARE(janela.ListaNomes->ListIndex(), 0);
        QCOMPARE(janela.ListaNomes->List(0), u"Abel"_s);
        QCOMPARE(s.geral.IDContacto, qint16{2});
        novo(u"Aaron"_s, 4); // before the first
        Q_EMIT sincronizador.ContactosMudados();
        QCOMPARE(janela.ListaNomes->ListIndex(), 1);
        s.Escrever(u"DELETE FROM TblLista WHERE ID=2"_s);
        novo(u"Zoe"_s, 3);
        Q_EMIT sincronizador.ContactosMudados();
        QCOMPARE(janela.ListaNomes->ListIndex(), -1); // who was chosen is gone
    }

    // What one part of the window asks of another.
    void o_que_uma_parte_pede_outra_faz()
    {
        ComJanela c;
        c.janela.show();
        Q_EMIT c.janela.findChild<ProcuraRapida *>()->Minimizar_Tray();
        QVERIFY(!c.janela.isVisible());
        Q_EMIT c.janela.findChild<Pesquisa *>()->Trazer_Main();
        QVERIFY(c.janela.isVisible());

        QStringList vieram;
        accoes::Quando_Abrir<frmNovoGrupo>([&](frmNovoGrupo &form) {
            vieram << form.objectName();
            form.reject();
        });
        Q_EMIT c.janela.findChild<EdicaoContacto *>()->Sem_Grupos();
        accoes::Quando_Abrir<frmNovoUser>([&](frmNovoUser &form) {
            vieram << form.objectName();
            form.reject();
        });
        Q_EMIT c.janela.findChild<::Grupos *>()->CriarUtilizador();
        QCOMPARE(vieram, (QStringList{u"frmNovoGrupo"_s, u"frmNovoUser"_s}));

        c.s.Novo_Grupo(u"Do servidor"_s);
        QVERIFY(c.janela.ComboGrupos->findText(u"Do servidor"_s) < 0);
        Q_EMIT c.janela.findChild<Sincronizador *>()->GruposMudados();
        QVERIFY(c.janela.ComboGrupos->findText(u"Do servidor"_s) >= 0);
    }

    void ao_comecar_a_sincronizacao_ligada_tem_o_seu_relogio_a_andar()
    {
        Sistema s;
        ContaSincronizada conta;
        conta.Endereco = u"dav.example"_s;
        conta.Livro = u"https://dav.example/eva/amigos/"_s;
        conta.IDGrupo = 1;
        conta.Ligada = true;
        conta.Minutos = 30;
        MemoriaDaSincronizacao(s.geral.de, s.geral.SessaoActual.IdUtilizador).Guardar(conta);
        Main janela(s.geral, s.plataforma);
        janela.Carregar();
        const QTimer &relogio = *janela.findChild<Sincronizador *>()->findChild<QTimer *>();
        QVERIFY(relogio.isActive());
        QCOMPARE(relogio.interval(), 30 * 60 * 1000);
    }

    // The dot

    void o_ponto_esta_no_seu_lugar_na_cor_do_desenho()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        QCOMPARE(janela.PontoTarefas->pos(), QPoint(pixels(9360), pixels(6225)));
        QCOMPARE(Cor_Do_Ponto(janela), QColor(0xF8, 0xF8, 0xF8));
    }

    void o_ponto_muda_de_cor_em_cada_tique()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        for (const QColor &cor : {QColor(Qt::black), QColor(0xF8, 0xF8, 0xF8), QColor(Qt::black)}) {
            Tique(s.geral.temporizadores.timerPonto);
            QCOMPARE(Cor_Do_Ponto(janela), cor);
        }
    }

    void o_ponto_pisca_com_o_temporizador_e_para_com_ele()
    {
        Sistema s;
        const Main janela(s.geral, s.plataforma);
        QTRY_COMPARE(Cor_Do_Ponto(janela), QColor(Qt::black));
        s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        QTest::qWait(1300);
        QCOMPARE(Cor_Do_Ponto(janela), QColor(Qt::black));
    }

    // The countdown

    void lblTemporizador_ao_mudar_para_0_para_o_temporizador_e_verifica_o_correio()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        Timer &minuto = s.geral.temporizadores.TimerMailNotification;
        Timer &passo = s.geral.temporizadores.TimerMailNotification3; // a check has begun
        minuto.setEnabled(true);
        for (const QString &texto : {u"2"_s, u"1"_s, u"10"_s, u""_s}) {
            janela.lblTemporizador->setCaption(texto);
            QVERIFY(minuto.Enabled() && !passo.Enabled());
        }
        janela.lblTemporizador->setCaption(u"0"_s);
        QVERIFY(!minuto.Enabled() && passo.Enabled());
        passo.setEnabled(false);
        janela.lblTemporizador->setCaption(u"0"_s); // no change
        QVERIFY(!passo.Enabled());
    }

    // Keys

    void F2_edita_e_Delete_elimina_quando_os_botoes_estao_ligados_data()
    {
        QTest::addColumn<QString>("foco");
        for (const char *nome : {"ListaNomes", "ComboGrupos", "cmdData", "txtTelefone1", "txtMorada"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void F2_edita_e_Delete_elimina_quando_os_botoes_estao_ligados()
    {
        QFETCH(QString, foco);
        ComJanela c;
        c.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Telefone1"_s, u"1"_s}, {u"Morada"_s, u"Rua"_s}});
        const Cliques edita(c.janela.cmdEditar);
        const Cliques elimina(c.janela.cmdEliminar);
        c.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&c.janela));
        auto &controlo = control<QWidget>(c.janela, foco);
        controlo.setFocus();
        QTest::keyClick(&controlo, Qt::Key_F2);
        QCOMPARE(edita.size(), 1);
        QTest::keyClick(&controlo, Qt::Key_Delete);
        QCOMPARE(elimina.size(), 1);
        QTest::keyClick(&controlo, Qt::Key_Escape);
        QVERIFY(!c.janela.isVisible());
    }

    void cada_atalho_faz_o_que_a_sua_entrada_faz_e_aparece_nela_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::addColumn<QKeySequence>("tecla");
        QTest::newRow("novo") << u"NovoContacto"_s << QKeySequence(Qt::CTRL | Qt::Key_N);
        QTest::newRow("editar") << u"EditarContacto"_s << QKeySequence(Qt::Key_F2);
        QTest::newRow("eliminar") << u"EliminarContacto"_s << QKeySequence(Qt::Key_Delete);
        QTest::newRow("procurar") << u"procurar"_s << QKeySequence(Qt::CTRL | Qt::Key_F);
        QTest::newRow("imprimir") << u"ImprimirLista"_s << QKeySequence(Qt::CTRL | Qt::Key_P);
        QTest::newRow("sair") << u"Sair"_s << QKeySequence(Qt::CTRL | Qt::Key_Q);
    }
    void cada_atalho_faz_o_que_a_sua_entrada_faz_e_aparece_nela()
    {
        QFETCH(QString, entrada);
        QFETCH(QKeySequence, tecla);
        ComJanela c;
        c.Mostrar({{u"Nome"_s, u"Ana"_s}});
        c.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&c.janela));
        auto &accao = control<QAction>(c.janela, entrada);
        QCOMPARE(accao.shortcut(), tecla);
        accao.disconnect(); // what the entry does is proven elsewhere
        int vezes = 0;
        connect(&accao, &QAction::triggered, &c.janela, [&vezes] { ++vezes; });
        QTest::keyClick(c.janela.ListaNomes, tecla[0].key(), tecla[0].keyboardModifiers());
        QCOMPARE(vezes, 1);
        accao.setEnabled(false);
        QTest::keyClick(c.janela.ListaNomes, tecla[0].key(), tecla[0].keyboardModifiers());
        QCOMPARE(vezes, 1);
    }

    void o_menu_da_lista_mostra_as_teclas_das_suas_entradas()
    {
        ComJanela c;
        QCOMPARE(c.janela.RightClickEditar->shortcut(), QKeySequence(Qt::Key_F2));
        QCOMPARE(c.janela.RightClickEliminar->shortcut(), QKeySequence(Qt::Key_Delete));
    }

    void sem_o_direito_o_atalho_recusa_como_a_entrada()
    {
        ComJanela c;
        c.s.Novo_Utilizador(u"Rui"_s, u"x"_s, u"00000"_s);
        c.s.Entrar(u"Rui"_s);
        c.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&c.janela));
        c.s.caixas.Espera_Qualquer(box::stop, c.janela.windowTitle());
        QTest::keyClick(c.janela.ListaNomes, Qt::Key_N, Qt::ControlModifier);
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void F2_e_Delete_nada_fazem_sem_contacto()
    {
        ComJanela c;
        const Cliques edita(c.janela.cmdEditar);
        const Cliques elimina(c.janela.cmdEliminar);
        c.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&c.janela));
        QTest::keyClick(c.janela.ListaNomes, Qt::Key_F2);
        QTest::keyClick(c.janela.ListaNomes, Qt::Key_Delete);
        QCOMPARE(edita.size() + elimina.size(), 0);
    }

    // Closing

    void fechar_a_janela_esconde_a_e_o_programa_continua()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        janela.show();
        QVERIFY(!janela.close()); // the closing was cancelled
        QVERIFY(!janela.isVisible());
        QVERIFY(!s.processo.Terminou());
        QVERIFY(A_Andar(s));
    }

    void fechar_a_janela_escondida_nao_volta_a_esconder()
    {
        Sistema s;
        s.geral.SessaoActual.PedirPassSystemTray = true;
        Main janela(s.geral, s.plataforma);
        QVERIFY(janela.close());
        QVERIFY(s.tabuleiro.historia.isEmpty());
        QVERIFY(!s.processo.Terminou());
    }

    void Fechar_no_menu_esconde_a_janela()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        janela.show();
        janela.Fechar->trigger();
        QVERIFY(!janela.isVisible());
        QVERIFY(!s.processo.Terminou());
    }

    void a_ficha_que_se_imprime_traz_a_fotografia_que_a_base_guarda()
    {
        ComJanela c;
        QVERIFY(QFile::copy(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/memo.rpt"_s,
                            c.s.Ficheiro(u"memo.rpt"_s)));
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        c.Mostrar({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, Por_Na_Base(c.s, {400, 400})}});
        QImage folha(595, 842, QImage::Format_RGB32);
        accoes::Quando_Abrir<frmImprimir>([&](frmImprimir &form) {
            form.opcoes->OptionMemo->click();
            form.CheckBoxPrevisualizar->setChecked(true);
            form.cmdImprimir->click();
            for (QWidget *janela : QApplication::topLevelWidgets())
                if (auto *previsao = qobject_cast<ReportPreview *>(janela)) {
                    folha.fill(Qt::white);
                    QPainter pintor(&folha);
                    pintor.scale(595 / previsao->pages()->paper().width(),
                                 842 / previsao->pages()->paper().height());
                    previsao->pages()->paint(pintor, 0, ReportPages::OnPaper);
                    previsao->close();
                }
            form.close();
        });
        c.janela.ImprimirLista->trigger();
        int vermelhos = 0;
        for (int y = 0; y < folha.height(); ++y)
            for (int x = 0; x < folha.width(); ++x)
                vermelhos += folha.pixel(x, y) == qRgb(200, 0, 0) ? 1 : 0;
        QVERIFY2(vermelhos > 10'000, qPrintable(QString::number(vermelhos))); // 2268 by 2268 twips
    }
};

MORVEX_TESTE(TestMain)
#include "test_Main.moc"
