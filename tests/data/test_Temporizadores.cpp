// The background timers of the main window and the switch over them.
#include "data/Temporizadores.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestTemporizadores : public QObject
{
    Q_OBJECT

    static QStringList Ligados(const Temporizadores &t)
    {
        QStringList nomes;
        const std::pair<const Timer *, QString> todos[] = {
            {&t.timerTarefas, u"timerTarefas"_s},
            {&t.timerPonto, u"timerPonto"_s},
            {&t.timerAniversarios, u"timerAniversarios"_s},
            {&t.TimerMailNotification, u"TimerMailNotification"_s},
            {&t.TimerMailNotification3, u"TimerMailNotification3"_s},
            {&t.TimerVerificacaoEmail, u"TimerVerificacaoEmail"_s},
            {&t.TimerStatusOfContact, u"TimerStatusOfContact"_s},
            {&t.TimerDownload, u"TimerDownload"_s}};
        for (const auto &[timer, nome] : todos)
            if (timer->Enabled()) nomes << nome;
        return nomes;
    }
    static void Ligar_Todos(Temporizadores &t)
    {
        for (Timer *timer :
             {&t.timerTarefas, &t.timerPonto, &t.timerAniversarios, &t.TimerMailNotification,
              &t.TimerMailNotification3, &t.TimerVerificacaoEmail, &t.TimerStatusOfContact, &t.TimerDownload})
            timer->setEnabled(true);
    }

private Q_SLOTS:
    void stop_e_start_dizem_se_a_quem_escreve_por_tras_dos_formularios()
    {
        Temporizadores t;
        QVERIFY(!t.Parados());
        QSignalSpy retomados(&t, &Temporizadores::Retomados);
        t.Gerir_Temporizadores(u"stop"_s);
        QVERIFY(t.Parados());
        connect(&t, &Temporizadores::Retomados, [&t] { QVERIFY(!t.Parados()); });
        t.Gerir_Temporizadores(u"outra"_s);
        QCOMPARE(retomados.size(), 0);
        QVERIFY(t.Parados());
        t.Gerir_Temporizadores(u"start"_s);
        QCOMPARE(retomados.size(), 1);
    }

    void o_estado_e_os_intervalos_de_origem()
    {
        Temporizadores t;
        QCOMPARE(Ligados(t), (QStringList{u"timerTarefas"_s, u"timerPonto"_s, u"timerAniversarios"_s,
                                          u"TimerDownload"_s}));
        QCOMPARE(t.timerTarefas.interval(), 1000);
        QCOMPARE(t.timerPonto.interval(), 1000);
        QCOMPARE(t.timerAniversarios.interval(), 59000);
        QCOMPARE(t.TimerMailNotification.interval(), 60000);
        QCOMPARE(t.TimerMailNotification3.interval(), 5000);
        QCOMPARE(t.TimerVerificacaoEmail.interval(), 11000);
        QCOMPARE(t.TimerStatusOfContact.interval(), 5000);
        QCOMPARE(t.TimerDownload.interval(), 60000);
    }

    void stop_desliga_quatro_e_deixa_os_outros()
    {
        Temporizadores t;
        Ligar_Todos(t);
        t.Gerir_Temporizadores(u"stop"_s);
        QCOMPARE(Ligados(t), (QStringList{u"timerAniversarios"_s, u"TimerVerificacaoEmail"_s,
                                          u"TimerStatusOfContact"_s, u"TimerDownload"_s}));
    }

    void start_liga_dois_e_chama_o_ciclo_do_correio()
    {
        Temporizadores t;
        t.Gerir_Temporizadores(u"stop"_s);
        QStringList ao_chamar{u"not called"_s};
        connect(&t, &Temporizadores::IniciarMail, this, [&] { ao_chamar = Ligados(t); });
        t.Gerir_Temporizadores(u"start"_s);
        const QStringList ligados{u"timerTarefas"_s, u"timerPonto"_s, u"timerAniversarios"_s,
                                  u"TimerDownload"_s};
        QCOMPARE(ao_chamar, ligados);
        QCOMPARE(Ligados(t), ligados);
    }

    void outra_palavra_nada_faz()
    {
        Temporizadores t;
        Ligar_Todos(t);
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        for (const QString &palavra : {u""_s, u"Stop"_s, u"START"_s, u"pause"_s})
            t.Gerir_Temporizadores(palavra);
        QCOMPARE(Ligados(t).size(), 8);
        QCOMPARE(correio.size(), 0);
    }

    void uma_pausa_dura_enquanto_o_formulario_esta_carregado()
    {
        Temporizadores t;
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        {
            const PausaDosTemporizadores pausa(t);
            QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        }
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled());
        QCOMPARE(correio.size(), 1);
    }

    void quem_retoma_ao_descarregar_ja_nao_retoma_ao_desaparecer()
    {
        Temporizadores t;
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        {
            PausaDosTemporizadores pausa(t);
            pausa.Retomar();
            QVERIFY(t.timerTarefas.Enabled());
            t.Gerir_Temporizadores(u"stop"_s); // another form loads before the first one is gone
        }
        QVERIFY(!t.timerTarefas.Enabled());
        QCOMPARE(correio.size(), 1);
    }

    void uma_pausa_largada_deixa_os_temporizadores_parados()
    {
        Temporizadores t;
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        {
            PausaDosTemporizadores pausa(t);
            pausa.Largar();
            pausa.Retomar();
        }
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        QCOMPARE(correio.size(), 0);
    }

    void uma_pausa_sobrevive_aos_temporizadores_e_a_um_correio_que_falha()
    {
        std::optional<PausaDosTemporizadores> pausa;
        {
            Temporizadores t;
            pausa.emplace(t);
        }
        pausa.reset();

        Temporizadores t;
        connect(&t, &Temporizadores::IniciarMail, this,
                [] { throw Failure(Failure::StoreError, u"TblEmails"_s, u"gone"_s); });
        pausa.emplace(t);
        pausa.reset();
        QVERIFY(t.timerTarefas.Enabled());
    }

    void ligar_o_que_esta_ligado_nao_recomeca_o_intervalo()
    {
        Timer timer(60000, false);
        timer.setTimerType(Qt::PreciseTimer);
        timer.setEnabled(true);
        QTest::qWait(30);
        const int antes = timer.remainingTime();
        timer.setEnabled(true);
        QVERIFY(timer.remainingTime() <= antes);
        timer.setEnabled(false);
        QVERIFY(!timer.Enabled());
        timer.setEnabled(true);
        QVERIFY(timer.remainingTime() > antes);
    }
};

MORVEX_TESTE(TestTemporizadores)
#include "test_Temporizadores.moc"
