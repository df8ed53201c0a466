// The reminders' share of the main window: its entries, the forms that they open, and the notice at the
// start.
#include "reminders/ComPopup.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmAniversarios.h"
#include "reminders/frmListaTarefas.h"
#include "session/Arranque.h"
#include "session/Main.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComMain {
    QAction &Entrada(const QString &nome) { return *janela.findChild<QAction *>(nome); }

    // Runs the step of the start that warns of birthdays.
    void Avisar()
    {
        Arranque inicio = janela.Inicio();
        for (const Arranque::Passo &passo : inicio.Passos())
            if (passo.nome == "Avisar_Aniversarios"_L1) return passo.executar();
        QTest::qFail("no such step", __FILE__, __LINE__);
    }

    void Aniversario_Hoje()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.geral.DiasAniversarios = 7;
        s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Dia"_s, u"1"_s}, {u"Mes"_s, u"2"_s}});
    }

    Sistema s;
    Main janela{s.geral, s.plataforma};
};

template<class Formulario> void Abre_Com_Main_Desactivada(const QString &entrada, const QString &modo)
{
    ComMain c;
    QVERIFY(c.Entrada(entrada).isEnabled());
    bool aberto = false;
    accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
        aberto = true;
        QVERIFY(!c.janela.isEnabled() && form.isEnabled());
        QCOMPARE(c.s.geral.ModoTarefa, modo);
        form.close();
    });
    c.Entrada(entrada).trigger();
    QVERIFY(aberto);
    QVERIFY(c.janela.isEnabled());
    QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled());
}
} // namespace

class TestLembretes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menu_botao_e_tabuleiro_abrem_uma_nova_tarefa_data()
    {
        QTest::addColumn<QString>("entrada");
        for (const char *nome : {"NovaTarefa", "nova_tarefa", "SystemTrayNovaTarefa"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void menu_botao_e_tabuleiro_abrem_uma_nova_tarefa()
    {
        QFETCH(QString, entrada);
        Abre_Com_Main_Desactivada<frmAddEditTarefa>(entrada, u"Add"_s);
    }

    void menu_e_tabuleiro_abrem_a_lista_data()
    {
        QTest::addColumn<QString>("entrada");
        for (const char *nome : {"ListaTarefas", "SystemTrayListaTarefas"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void menu_e_tabuleiro_abrem_a_lista()
    {
        QFETCH(QString, entrada);
        Abre_Com_Main_Desactivada<frmListaTarefas>(entrada, QString());
    }

    void menu_e_botao_mostram_os_aniversarios_sem_esperar_data()
    {
        QTest::addColumn<QString>("entrada");
        for (const char *nome : {"Aniversarios", "aniversarios"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void menu_e_botao_mostram_os_aniversarios_sem_esperar()
    {
        QFETCH(QString, entrada);
        ComMain c;
        QVERIFY(c.Entrada(entrada).isEnabled());
        c.Entrada(entrada).trigger();
        auto *form = Aberto<frmAniversarios>();
        QVERIFY(form != nullptr && form->isVisible());
        QVERIFY(c.janela.isEnabled());
        form->close();
    }

    void um_formulario_ja_aberto_nao_se_abre_outra_vez()
    {
        ComMain c;
        accoes::Quando_Abrir<frmListaTarefas>([&](frmListaTarefas &lista) {
            QDialog outra(&lista);
            outra.show();
            outra.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&outra));
            const Subidas subidas(lista);
            c.Entrada(u"SystemTrayListaTarefas"_s).trigger(); // returns at once
            QCOMPARE(Aberto<frmListaTarefas>(), &lista);
            QCOMPARE(subidas.vezes, 1);
            QTRY_COMPARE(QApplication::activeWindow(), &lista);
            outra.close();
            accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &nova) {
                c.Entrada(u"SystemTrayNovaTarefa"_s).trigger();
                QVERIFY(nova.isVisible());
                nova.close();
            });
            lista.cmdCriar->click();
            lista.close();
        });
        c.Entrada(u"ListaTarefas"_s).trigger();
        QVERIFY(c.janela.isEnabled());
    }

    // The tray menu is at hand while the alert card is open.
    void uma_edicao_na_lista_fecha_o_cartao_que_ficou_velho()
    {
        ComMain c;
        c.s.geral.de.Executar("cmdAdicionarTarefa",
                              {u"Regar"_s, u"01-02-2027"_s, u"08:00"_s, u"0"_s, u"3"_s});
        Disparar(c.s.geral.temporizadores.timerTarefas);
        auto *popup = Aberto<frmPopup>();
        Subir(*popup);
        Clicar(*popup, [&](frmTarefas &cartao) {
            accoes::Quando_Abrir_Qualquer([&](QWidget &) {}); // the card itself is still in front
            QTimer::singleShot(0, &c.janela, [&] {
                accoes::Quando_Abrir<frmAddEditTarefa>([](frmAddEditTarefa &edicao) {
                    edicao.DataTarefa->setDate({2027, 2, 5});
                    edicao.cmdOk->click();
                });
                auto *lista = Aberto<frmListaTarefas>();
                lista->ListViewTarefas->setCurrentItem(lista->ListViewTarefas->topLevelItem(0));
                lista->cmdEditar->click();
                QVERIFY(!cartao.isVisible());
                lista->close();
            });
            c.Entrada(u"SystemTrayListaTarefas"_s).trigger();
        });
        QCOMPARE(c.s.Linhas(u"SELECT Data FROM TblTarefas"_s), QStringList{u"2027-02-05"_s});
        QVERIFY(popup->TimerDown.Enabled());
        Descer(*popup);
        QVERIFY(c.janela.isEnabled());
    }

    void o_arranque_avisa_com_0_e_1_e_tambem_sem_numero_data()
    {
        QTest::addColumn<QString>("aviso");
        for (const char *aviso : {"0", "1", "", "x"})
            QTest::newRow(aviso) << QString::fromLatin1(aviso);
    }
    void o_arranque_avisa_com_0_e_1_e_tambem_sem_numero()
    {
        QFETCH(QString, aviso);
        ComMain c;
        c.Aniversario_Hoje();
        c.s.geral.AvisoAniversarios = aviso;
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        bool aberto = false;
        accoes::Quando_Abrir<frmAniversarios>([&](frmAniversarios &form) {
            aberto = true;
            QVERIFY(!c.s.geral.temporizadores.timerTarefas.Enabled());
            form.close();
        });
        c.Avisar();
        QVERIFY(aberto);
        QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(c.s.geral.temporizadores.timerPonto.Enabled());
    }

    void o_arranque_com_2_nao_avisa_nem_liga_os_temporizadores()
    {
        ComMain c;
        c.Aniversario_Hoje();
        c.s.geral.AvisoAniversarios = u"2"_s;
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        c.Avisar();
        QVERIFY(Aberto<frmAniversarios>() == nullptr);
        QVERIFY(!c.s.geral.temporizadores.timerTarefas.Enabled());
    }

    void o_arranque_sem_base_liga_os_temporizadores_na_mesma()
    {
        ComMain c;
        c.s.geral.AvisoAniversarios = u"1"_s;
        c.s.Escrever(u"ALTER TABLE TblLista RENAME TO Perdida"_s);
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        c.Avisar();
        QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(c.s.geral.temporizadores.timerPonto.Enabled());
    }

    void o_aviso_vem_depois_do_icone_e_antes_de_minimizar()
    {
        ComMain c;
        QStringList nomes;
        Arranque inicio = c.janela.Inicio();
        for (const Arranque::Passo &passo : inicio.Passos())
            nomes << QString::fromLatin1(passo.nome);
        const qsizetype aviso = nomes.indexOf(u"Avisar_Aniversarios"_s);
        QCOMPARE(nomes.indexOf(u"Adicionar_Icone"_s), aviso - 1);
        QCOMPARE(nomes.indexOf(u"Minimizar"_s), aviso + 1);
    }
};

MORVEX_TESTE(TestLembretes)
#include "test_Lembretes.moc"
