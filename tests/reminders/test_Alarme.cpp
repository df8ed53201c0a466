// The cycle of alarms: what is due, what a tick does, and the road of a task from its minute to its
// acknowledgement.
#include "reminders/Alarme.h"
#include "reminders/Calendario.h"
#include "reminders/ComPopup.h"
#include "testlib/ServidorFalso.h"

#include <QDialog>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace
{
struct ComAlarme : ComTarefas {
    void Tique() { Disparar(s.geral.temporizadores.timerTarefas); }

    // What the notice shows, "" without one.
    QString Aviso() const
    {
        const auto *popup = Aberto<frmPopup>();
        if (popup == nullptr) return {};
        return QStringList{popup->lblTarefa->text(), popup->lblData->text(), popup->lblHora->text()}.join(
            u'|');
    }

    // The notice is answered with "&Ok" and has sunk.
    void Confirmar()
    {
        auto *popup = Aberto<frmPopup>();
        QVERIFY(popup != nullptr && popup->isVisible());
        Clicar_E_Confirmar(*popup);
        Descer(*popup);
        QVERIFY(Aberto<frmPopup>() == nullptr);
    }

    // The notice is put off on its card, and has sunk.
    void Adiar(int minutos)
    {
        auto *popup = Aberto<frmPopup>();
        QVERIFY(popup != nullptr && popup->isVisible());
        Clicar(*popup, [minutos](frmTarefas &cartao) {
            for (QAction *entrada : cartao.cmdAdiar->menu()->actions())
                if (entrada->text().startsWith(QString::number(minutos) + u' ')) entrada->trigger();
            QVERIFY(!cartao.isVisible());
        });
        Descer(*popup);
        QVERIFY(Aberto<frmPopup>() == nullptr);
    }

    Alarme *alarme = new Alarme(janela, s.geral, s.plataforma, relatorio);
};

// Its tasks lie where other desks change them too.
struct ComAlarmeNumServidor : ComAlarme {
    ComAlarmeNumServidor() { servidor.Servir(s.geral); }

    void Outro_Posto(const QString &sql)
    {
        s.Escrever(sql);
        alarme->Tarefas_Mudaram();
    }

    ServidorFalso servidor{s.Base()};
};
} // namespace

class TestAlarme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_de_ontem_com_hora_ainda_por_vir_e_devida_so_pelo_segundo_comando()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"31-01-2027"_s, u"18:00"_s);
        Recordset &vencidas = c.s.geral.de.Abrir("cmdVerificarTarefas", {u"01-02-2027"_s, u"09:00"_s, u"0"_s});
        QVERIFY(vencidas.Eof());
        vencidas.Close(); // on a server the alarm does not ask it
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|31-01-2027|18:00"_s);
        QCOMPARE(c.s.geral.de.Rs("cmdVerificarTarefas").State(), Recordset::Closed);
        QCOMPARE(c.s.geral.de.Rs("cmdVerificarTarefas2").State(), Recordset::Closed);
    }

    void a_de_hoje_toca_na_mudanca_do_minuto()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"09:01"_s);
        c.s.relogio.Avancar_Segundos(59);
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        QVERIFY(c.janela.isEnabled());
        c.s.relogio.Avancar_Segundos(1);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|01-02-2027|09:01"_s);
        QVERIFY(!c.janela.isEnabled());
    }

    void a_de_outro_utilizador_nunca_toca()
    {
        ComAlarme c;
        c.Nova(u"Ontem"_s, u"31-01-2027"_s, u"18:00"_s, u"1"_s, u"2"_s);
        c.Nova(u"Hoje"_s, u"01-02-2027"_s, u"08:00"_s, u"1"_s, u"2"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        c.s.geral.SessaoActual.IdUtilizador = u"2"_s;
        c.Tique();
        QCOMPARE(c.Aviso(), u"Ontem|31-01-2027|18:00"_s);
    }

    void de_varias_fica_a_ultima_de_data_anterior_ou_senao_a_ultima_de_hoje()
    {
        ComAlarme c;
        c.Nova(u"Hoje às oito"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Nova(u"Hoje às sete"_s, u"01-02-2027"_s, u"07:00"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Hoje às oito|01-02-2027|08:00"_s);
        c.Nova(u"Anteontem"_s, u"30-01-2027"_s, u"23:00"_s);
        c.Nova(u"Ontem de manhã"_s, u"31-01-2027"_s, u"08:00"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Ontem de manhã|31-01-2027|08:00"_s);
    }

    void duas_devidas_tocam_uma_depois_da_outra_a_mais_tardia_primeiro()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"07:00"_s);
        c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Segunda|01-02-2027|08:00"_s);
        QCOMPARE(c.s.som.tocados.size(), 1);
        c.Confirmar();
        QCOMPARE(c.Tarefas(), QStringList{u"Primeira|2027-02-01|07:00:00|1"_s});
        c.Tique();
        QCOMPARE(c.Aviso(), u"Primeira|01-02-2027|07:00"_s);
        QVERIFY(Aberto<frmPopup>()->TimerUp.Enabled());
        QCOMPARE(c.s.som.tocados.size(), 2);
        c.Confirmar();
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
    }

    void um_tique_sem_devidas_so_liga_os_dois_temporizadores()
    {
        ComAlarme c;
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        c.Tique();
        QVERIFY(c.Temporizadores_Ligados());
        QVERIFY(!c.s.geral.temporizadores.TimerMailNotification.Enabled());
        QVERIFY(c.s.som.tocados.isEmpty());
    }

    void sob_o_aviso_os_tiques_continuam_e_o_correio_para()
    {
        ComAlarme c;
        c.s.geral.temporizadores.TimerMailNotification.setEnabled(true);
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        QVERIFY(c.Temporizadores_Ligados());
        QVERIFY(!c.s.geral.temporizadores.TimerMailNotification.Enabled());
    }

    void uma_nova_devida_reescreve_o_aviso_sem_novo_som()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"08:00"_s);
        const int segunda = c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"09:01"_s);
        c.Tique();
        const auto *popup = Aberto<frmPopup>();
        QCOMPARE(c.Aviso(), u"Primeira|01-02-2027|08:00"_s);
        c.s.relogio.Avancar_Minutos(1);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Segunda|01-02-2027|09:01"_s);
        QCOMPARE(popup->txtIDTarefa->text(), QString::number(segunda));
        QVERIFY(Aberto<frmPopup>() == popup);
        QCOMPARE(c.s.som.tocados.size(), 1);
    }

    void ninguem_responde_e_o_aviso_fica_e_main_espera()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        auto *popup = Aberto<frmPopup>();
        Subir(*popup);
        for (int dia = 0; dia < 3; ++dia) {
            c.s.relogio.Avancar_Dias(1);
            c.Tique();
            QTest::qWait(20);
            QVERIFY(popup->isVisible() && !c.janela.isEnabled());
            QVERIFY(!popup->TimerDown.Enabled() && !popup->TimerTimeout.Enabled());
            QVERIFY(popup->windowHandle()->flags() & Qt::WindowStaysOnTopHint);
        }
        QCOMPARE(c.s.som.tocados.size(), 1);
    }

    void cada_tique_com_devidas_volta_a_desactivar_main()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        c.janela.setEnabled(true); // as a form does that was opened from the tray and closed
        c.Tique();
        QVERIFY(!c.janela.isEnabled());
    }

    void um_formulario_a_frente_de_main_continua_utilizavel()
    {
        ComAlarme c;
        QDialog dialogo(&c.janela);
        dialogo.show();
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        QVERIFY(!c.janela.isEnabled());
        QVERIFY(dialogo.isEnabled());
    }

    void sob_um_formulario_modal_o_aviso_toca_mas_so_aparece_depois()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        QDialog modal(&c.janela);
        modal.setModal(true);
        modal.show();
        c.Tique();
        QVERIFY(!Aberto<frmPopup>()->isVisible());
        QCOMPARE(c.Aviso(), u"Regar|01-02-2027|08:00"_s);
        QCOMPARE(c.s.som.tocados.size(), 1);
        QVERIFY(!c.janela.isEnabled() && modal.isEnabled());
        QVERIFY(c.Temporizadores_Ligados());
        Subir(*Aberto<frmPopup>());
        modal.close();
        c.Tique();
        QVERIFY(Aberto<frmPopup>()->isVisible());
        QCOMPARE(c.s.som.tocados.size(), 1);
        c.Confirmar();
        QVERIFY(c.Tarefas().isEmpty());
    }

    void sob_o_cartao_os_tiques_continuam_e_o_cartao_fica_como_esta()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"09:01"_s);
        c.Tique();
        Clicar(*Aberto<frmPopup>(), [&](frmTarefas &cartao) {
            c.s.relogio.Avancar_Minutos(1);
            c.Tique();
            QCOMPARE(c.Aviso(), u"Segunda|01-02-2027|09:01"_s);
            QCOMPARE(cartao.txtTarefa->toPlainText(), u"Primeira"_s);
            QVERIFY(cartao.isEnabled() && c.Temporizadores_Ligados());
            cartao.cmdImprimir->click();
        });
        QCOMPARE(c.Tarefas(), QStringList{u"Segunda|2027-02-01|09:01:00|1"_s});
        QCOMPARE(c.s.som.tocados.size(), 1);
    }

    void um_tique_durante_a_descida_reescreve_e_a_seguinte_nasce_depois()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"07:00"_s);
        c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        auto *popup = Aberto<frmPopup>();
        Subir(*popup);
        Clicar_E_Confirmar(*popup);
        Disparar(popup->TimerDown);
        c.Tique();
        QVERIFY(Aberto<frmPopup>() == popup);
        QCOMPARE(c.Aviso(), u"Primeira|01-02-2027|07:00"_s);
        QCOMPARE(c.s.som.tocados.size(), 1);
        Descer(*popup);
        QCOMPARE(c.Aviso(), QString());
        QVERIFY(c.janela.isEnabled());
        c.Tique();
        QCOMPARE(c.s.som.tocados.size(), 2);
        QCOMPARE(c.Tarefas().size(), 1);
    }

    void um_erro_da_base_nao_se_mostra_e_o_tique_seguinte_tenta_de_novo()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        c.Perder(u"TblTarefas"_s);
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|01-02-2027|08:00"_s);
        QVERIFY(c.Temporizadores_Ligados());
        c.Recuperar(u"TblTarefas"_s);
        c.Nova(u"Podar"_s, u"01-02-2027"_s, u"08:30"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Podar|01-02-2027|08:30"_s);
    }

    void um_campo_ilegivel_salta_se_e_os_outros_escrevem_se()
    {
        ComAlarme c;
        const int id = c.Nova(u"Regar"_s, u"31-01-2027"_s, u"08:00"_s);
        c.s.Escrever(u"UPDATE TblTarefas SET Tarefa=NULL, Hora=NULL"_s);
        c.Tique();
        const auto *popup = Aberto<frmPopup>();
        QCOMPARE(popup->txtIDTarefa->text(), QString::number(id));
        QCOMPARE(c.Aviso(), u"|31-01-2027|"_s);
        QVERIFY(popup->isVisible());
    }

    void um_valor_ilegivel_da_ultima_linha_deixa_o_da_anterior()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"31-01-2027"_s, u"08:00"_s);
        const int id = c.Nova(u"Podar"_s, u"31-01-2027"_s, u"08:30"_s);
        c.s.Escrever(u"UPDATE TblTarefas SET Tarefa=NULL WHERE ID=%1"_s.arg(id));
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|31-01-2027|08:30"_s);
        QCOMPARE(Aberto<frmPopup>()->txtIDTarefa->text(), QString::number(id));
    }

    void o_caminho_de_uma_tarefa_do_seu_minuto_a_confirmacao()
    {
        ComAlarme c;
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::ReiniciarMail);
        const int id = c.Nova(u"Regar"_s, u"01-02-2027"_s, u"09:00"_s, u"3"_s);
        c.Tique();
        auto *popup = Aberto<frmPopup>();
        QCOMPARE(c.s.som.tocados, QStringList{c.s.Ficheiro(u"tarefa.wav"_s)});
        QVERIFY(popup->isVisible() && popup->TimerUp.Enabled() && !c.janela.isEnabled());
        QTRY_VERIFY(!popup->TimerUp.Enabled());
        Clicar(*popup->lblTarefa, [&](frmTarefas &cartao) {
            QCOMPARE(cartao.txtIDTarefa->text(), QString::number(id));
            cartao.cmdImprimir->click();
        });
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-08|09:00:00|3"_s});
        QVERIFY(popup->TimerDown.Enabled() && !c.janela.isEnabled());
        QTRY_VERIFY(Aberto<frmPopup>() == nullptr);
        QVERIFY(c.janela.isEnabled() && c.Temporizadores_Ligados());
        QCOMPARE(correio.count(), 1);
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        c.s.relogio.Avancar_Dias(7);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|08-02-2027|09:00"_s);
    }

    void uma_diaria_atrasada_cinco_dias_confirma_se_cinco_vezes()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"28-01-2027"_s, u"09:00"_s, u"2"_s);
        for (const auto &data : {u"28-01"_s, u"29-01"_s, u"30-01"_s, u"31-01"_s, u"01-02"_s}) {
            c.Tique();
            QCOMPARE(c.Aviso(), u"Regar|%1-2027|09:00"_s.arg(data));
            c.Confirmar();
        }
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-02|09:00:00|2"_s});
    }

    void a_mensal_de_31_de_janeiro_confirmada_mes_a_mes_fica_no_dia_28()
    {
        ComAlarme c;
        c.Nova(u"Renda"_s, u"31-01-2027"_s, u"09:00"_s, u"4"_s);
        for (const auto &[tocou, passa_a] : {std::pair{u"31-01"_s, u"02-28"_s},
                                             {u"28-02"_s, u"03-28"_s},
                                             {u"28-03"_s, u"04-28"_s},
                                             {u"28-04"_s, u"05-28"_s},
                                             {u"28-05"_s, u"06-28"_s},
                                             {u"28-06"_s, u"07-28"_s},
                                             {u"28-07"_s, u"08-28"_s},
                                             {u"28-08"_s, u"09-28"_s},
                                             {u"28-09"_s, u"10-28"_s},
                                             {u"28-10"_s, u"11-28"_s},
                                             {u"28-11"_s, u"12-28"_s}}) {
            c.Agora(tocou + u"-2027 09:00"_s);
            c.Tique();
            QCOMPARE(c.Aviso(), u"Renda|%1-2027|09:00"_s.arg(tocou));
            c.Confirmar();
            c.Tique();
            QCOMPARE(c.Aviso(), QString());
            QCOMPARE(c.Tarefas(), QStringList{u"Renda|2027-%1|09:00:00|4"_s.arg(passa_a)});
        }
    }

    void depois_da_descida_a_seguinte_sobe_por_si_no_primeiro_tique()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"07:00"_s);
        c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        c.Confirmar();
        const Timer &timerTarefas = c.s.geral.temporizadores.timerTarefas;
        QVERIFY(timerTarefas.Enabled());
        QCOMPARE(timerTarefas.interval(), 1000);
        QSignalSpy tiques(&timerTarefas, &QTimer::timeout);
        QTRY_COMPARE(c.Aviso(), u"Primeira|01-02-2027|07:00"_s);
        QCOMPARE(tiques.count(), 1);
        QCOMPARE(c.s.som.tocados.size(), 2);
    }

    void sem_confirmacao_volta_a_tocar()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s, u"2"_s);
        for (int i = 0; i < 2; ++i) {
            c.Tique();
            auto *popup = Aberto<frmPopup>();
            Clicar(*popup, [](frmTarefas &cartao) { cartao.close(); });
            Descer(*popup);
        }
        QCOMPARE(c.s.som.tocados.size(), 2);
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|08:00:00|2"_s});
    }

    void um_ano_de_cada_repeticao_toca_nos_dias_do_oraculo_data()
    {
        QTest::addColumn<QString>("IDRepeticao");
        QTest::addColumn<QDate>("inicio");
        QTest::addColumn<int>("toques");
        // Over both changes of the clock and the 29th of February.
        QTest::newRow("diária") << u"2"_s << QDate(2027, 10, 20) << 383;
        QTest::newRow("semanal") << u"3"_s << QDate(2027, 10, 24) << 55;
        QTest::newRow("mensal do dia 31") << u"4"_s << QDate(2027, 10, 31) << 13;
        QTest::newRow("anual de 29 de Fevereiro") << u"5"_s << QDate(2028, 2, 29) << 1;
    }
    void um_ano_de_cada_repeticao_toca_nos_dias_do_oraculo()
    {
        QFETCH(QString, IDRepeticao);
        QFETCH(QDate, inicio);
        QFETCH(int, toques);
        ComAlarme c;
        c.Nova(u"Regar"_s, inicio.toString(u"dd-MM-yyyy"), u"09:00"_s, IDRepeticao);
        QDate esperada = inicio;
        int tocou = 0;
        for (QDate dia(2027, 10, 20); dia <= QDate(2028, 11, 5); dia = dia.addDays(1)) {
            c.s.relogio.Acertar(QDateTime(dia, {8, 59, 59}));
            c.Tique();
            QCOMPARE(c.Aviso(), QString());
            c.s.relogio.Acertar(QDateTime(dia, {9, 0}));
            c.Tique();
            QCOMPARE(c.Aviso().isEmpty(), dia != esperada);
            if (dia != esperada) continue;
            ++tocou;
            c.Confirmar();
            esperada = calendario::Data_Seguinte(IDRepeticao, esperada);
            QCOMPARE(c.Tarefas(),
                     QStringList{u"Regar|%1|09:00:00|%2"_s.arg(esperada.toString(Qt::ISODate), IDRepeticao)});
        }
        QCOMPARE(tocou, toques);
    }

    // In Lisbon the clock goes from 01:00 to 02:00 on 28 March 2027, and from 02:00 back to 01:00 on 31
    // October.
    void na_mudanca_da_hora_uma_diaria_toca_uma_vez_data()
    {
        QTest::addColumn<QDate>("dia");
        QTest::addColumn<QTime>("toca");
        QTest::newRow("primavera: a hora não existe") << QDate(2027, 3, 28) << QTime(2, 0);
        QTest::newRow("outono: a hora vem duas vezes") << QDate(2027, 10, 31) << QTime(1, 30);
    }
    void na_mudanca_da_hora_uma_diaria_toca_uma_vez()
    {
        QFETCH(QDate, dia);
        QFETCH(QTime, toca);
        ComAlarme c;
        c.Nova(u"Regar"_s, dia.toString(u"dd-MM-yyyy"), u"01:30"_s, u"2"_s);
        QList<QTime> toques;
        c.s.relogio.Acertar(QDateTime(dia, {0, 0}));
        for (; c.s.relogio.now().date() == dia; c.s.relogio.Avancar_Minutos(1)) {
            c.Tique();
            if (c.Aviso().isEmpty()) continue;
            toques << c.s.relogio.now().time();
            c.Confirmar();
        }
        QCOMPARE(toques, QList<QTime>{toca});
    }

    void a_adiada_cala_se_ate_ao_seu_minuto_e_a_linha_fica_como_estava_data()
    {
        QTest::addColumn<int>("minutos");
        for (const int minutos : {5, 15, 60})
            QTest::addRow("%d minutos", minutos) << minutos;
    }
    void a_adiada_cala_se_ate_ao_seu_minuto_e_a_linha_fica_como_estava()
    {
        QFETCH(int, minutos);
        ComAlarme c;
        c.Nova(u"Regar"_s, u"31-01-2027"_s, u"08:00"_s, u"3"_s);
        const QStringList antes = c.Tarefas();
        c.Tique();
        c.Adiar(minutos);
        QCOMPARE(c.Tarefas(), antes);
        c.s.relogio.Avancar_Segundos(minutos * 60 - 1);
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        QVERIFY(c.janela.isEnabled());
        c.s.relogio.Avancar_Segundos(1);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|31-01-2027|08:00"_s);
        QCOMPARE(c.s.som.tocados.size(), 2);
        c.Confirmar();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-07|08:00:00|3"_s});
    }

    void as_outras_tocam_enquanto_uma_esta_adiada()
    {
        ComAlarme c;
        c.Nova(u"Primeira"_s, u"01-02-2027"_s, u"07:00"_s);
        c.Nova(u"Segunda"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Segunda|01-02-2027|08:00"_s);
        c.Adiar(15);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Primeira|01-02-2027|07:00"_s);
        c.Confirmar();
        c.Tique();
        QCOMPARE(c.Aviso(), QString());
        c.s.relogio.Avancar_Minutos(15);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Segunda|01-02-2027|08:00"_s);
    }

    void uma_adiada_que_mudou_de_hora_toca_na_hora_nova()
    {
        ComAlarme c;
        const int id = c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        c.Adiar(60);
        c.s.Escrever(u"UPDATE TblTarefas SET Hora='09:05:00' WHERE ID=%1"_s.arg(id));
        c.s.relogio.Avancar_Minutos(5);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|01-02-2027|09:05"_s);
    }

    void o_fim_do_programa_esquece_o_adiamento()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        c.Adiar(60);
        delete c.alarme;
        c.alarme = new Alarme(c.janela, c.s.geral, c.s.plataforma, c.relatorio);
        c.Tique();
        QCOMPARE(c.Aviso(), u"Regar|01-02-2027|08:00"_s);
    }

    void uma_resposta_sem_rato_abre_o_cartao_como_um_clique()
    {
        ComAlarme c;
        QVERIFY(!c.alarme->Responder());
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        accoes::Quando_Abrir<frmTarefas>([](frmTarefas &cartao) { cartao.cmdImprimir->click(); });
        QVERIFY(c.alarme->Responder());
        QCOMPARE(c.Tarefas(), QStringList{});
    }

    void o_aviso_diz_a_um_leitor_de_ecra_o_que_mostra()
    {
        ComAlarme c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"08:00"_s);
        c.Tique();
        QCOMPARE(Aberto<frmPopup>()->accessibleName(), c.s.Texto(172) + u" Regar 01-02-2027 08:00"_s);
    }

    void o_que_outro_posto_trata_faz_descer_o_aviso_se_nada_mais_venceu_data()
    {
        QTest::addColumn<bool>("outra_vencida");
        QTest::newRow("era a única") << false;
        QTest::newRow("há outra") << true;
    }
    void o_que_outro_posto_trata_faz_descer_o_aviso_se_nada_mais_venceu()
    {
        SO_NUM_FICHEIRO("a server's stand-in");
        QFETCH(bool, outra_vencida);
        ComAlarmeNumServidor c;
        c.alarme->Tarefas_Mudaram(); // there is no notice yet
        QVERIFY(Aberto<frmPopup>() == nullptr);
        if (outra_vencida) c.Nova(u"Podar"_s, u"30-01-2027"_s, u"08:00"_s);
        c.Nova(u"Regar"_s, u"31-01-2027"_s, u"08:00"_s);
        c.Tique();
        const auto *popup = Aberto<frmPopup>();
        QVERIFY(popup != nullptr);
        QVERIFY(!popup->TimerDown.Enabled());
        c.Outro_Posto(u"UPDATE TblTarefas SET Data='2027-03-01' WHERE Tarefa='Regar'"_s);
        QCOMPARE(popup->TimerDown.Enabled(), !outra_vencida);
        Descer(*Aberto<frmPopup>());
    }

    void com_o_cartao_aberto_o_aviso_fica_seja_o_que_for_que_outro_posto_faz()
    {
        SO_NUM_FICHEIRO("a server's stand-in");
        ComAlarmeNumServidor c;
        c.Nova(u"Regar"_s, u"31-01-2027"_s, u"08:00"_s);
        c.Tique();
        auto *popup = Aberto<frmPopup>();
        QVERIFY(popup != nullptr);
        Clicar(*popup, [&](frmTarefas &cartao) {
            c.Outro_Posto(u"UPDATE TblTarefas SET Data='2027-03-01'"_s);
            QVERIFY(!popup->TimerDown.Enabled());
            cartao.reject();
        });
        Descer(*popup);
    }
};

MORVEX_TESTE(TestAlarme)
#include "test_Alarme.moc"
