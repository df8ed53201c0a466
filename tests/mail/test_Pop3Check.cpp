// One look into a mailbox: what the checker says to a server, and what it makes of servers that misbehave.
#include "mail/MailServer.h"
#include "mail/MailTexts.h"
#include "mail/Pop3Check.h"
#include "testlib/Pausas.h"
#include "testlib/ServidorPop.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr Pop3Check::Limits soon{200, 300, 3000};
constexpr Pop3Check::Limits roomy{2000, 5000, 30000}; // for a server that sends much
constexpr qint64 blocked = 250; // ms: shorter than any wait for a server, longer than a busy machine's hiccup

struct Outcome {
    bool ended = false;
    MailError error = MailError::None;
    Pop3Check::Result result;
    qint64 longestPause = 0;
};

Outcome look(const MailServer &server, const Pop3Check::Trust &trust = {},
             const QString &password = u"segredo9"_s, const Pop3Check::Limits &limits = soon)
{
    Outcome outcome;
    Pop3Check check(server, u"ana"_s, password, trust, limits);
    QObject::connect(&check, &Pop3Check::succeeded, &check, [&](const Pop3Check::Result &result) {
        outcome.ended = true;
        outcome.result = result;
    });
    QObject::connect(&check, &Pop3Check::failed, &check, [&](MailError error) {
        outcome.ended = true;
        outcome.error = error;
    });
    const Pausas pausas;
    check.start();
    [[maybe_unused]] const bool inTime = QTest::qWaitFor([&] { return outcome.ended; }, 40000);
    outcome.longestPause = pausas.maior;
    return outcome;
}

Outcome look(const ServidorPop &server, const Pop3Check::Trust &trust = {},
             const QString &password = u"segredo9"_s, const Pop3Check::Limits &limits = soon)
{
    return look({u"127.0.0.1"_s, server.serverPort(), false}, trust, password, limits);
}
} // namespace

class TestPop3Check : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_are_read_as_people_write_them_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // host|port|tls, empty for an error
        const auto row = [](const char *text, const char *expected) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(expected);
        };
        row("mail.example.org", "mail.example.org|110|0");
        row(" mail.example.org ", "mail.example.org|110|0");
        row("mail.example.org:2110", "mail.example.org|2110|0");
        row("mail.example.org:995", "mail.example.org|995|1");
        row("pop3://mail.example.org", "mail.example.org|110|0");
        row("pop3s://mail.example.org", "mail.example.org|995|1");
        row("POP3S://mail.example.org:1995/", "mail.example.org|1995|1");
        row("[::1]:110", "::1|110|0");
        row("[fe80::1]", "fe80::1|110|0");
        row("", "");
        row("imap://mail.example.org", "");
        row("mail example", "");
        row("mail:0", "");
        row("mail:70000", "");
        row("mail:65535", "mail|65535|0");
        row("mail:65536", "");
        row("mail:1", "mail|1|0");
        row("pop3s://mail:110", "mail|110|1");
        row("mail:", "");
        row("user@mail", "");
        row("::1", "");
    }
    void addresses_are_read_as_people_write_them()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        const auto server = MailServer::parse(text);
        QCOMPARE(server ? u"%1|%2|%3"_s.arg(server->host).arg(server->port).arg(server->tls ? 1 : 0)
                        : QString(),
                 expected);
    }

    void a_good_server_is_asked_in_order_and_nothing_is_fetched()
    {
        ServidorPop server(Conversa_Boa());
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 2);
        QCOMPARE(outcome.result.uids, (QStringList{u"abc"_s, u"def"_s}));
        QCOMPARE(outcome.result.loginDelay, 90);
        QVERIFY(!outcome.result.trust.encryptedBefore);
        QCOMPARE(server.ouvido,
                 (QList<QByteArray>{"CAPA", "USER ana", "PASS segredo9", "STAT", "UIDL", "QUIT"}));
    }

    void an_empty_mailbox_is_not_asked_for_names()
    {
        QList<Fala> acts = Conversa_Boa("+OK 0 0\r\n");
        acts.removeAt(5);
        ServidorPop server(acts);
        const Outcome outcome = look(server);
        QVERIFY(outcome.ended);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 0);
        QVERIFY(outcome.result.hasUids); // none of them
    }

    void a_server_without_names_gives_the_count_alone()
    {
        QList<Fala> acts = Conversa_Boa();
        acts[5].resposta = "-ERR what?\r\n";
        ServidorPop server(acts);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 2);
        QVERIFY(!outcome.result.hasUids);
    }

    void an_old_server_without_capa_is_served_in_the_clear()
    {
        QList<Fala> acts = Conversa_Boa();
        acts[1].resposta = "-ERR unknown\r\n";
        ServidorPop server(acts);
        QCOMPARE(look(server).error, MailError::None);
    }

    void a_refusal_is_told_apart_from_a_busy_mailbox_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("error");
        QTest::newRow("wrong password") << QByteArray("-ERR [AUTH] no\r\n") << int(MailError::Refused);
        QTest::newRow("bare") << QByteArray("-ERR\r\n") << int(MailError::Refused);
        QTest::newRow("in use") << QByteArray("-ERR [IN-USE] locked\r\n") << int(MailError::Busy);
        QTest::newRow("temporary") << QByteArray("-ERR [SYS/TEMP] later\r\n") << int(MailError::Busy);
        QTest::newRow("too soon") << QByteArray("-ERR [LOGIN-DELAY] wait\r\n") << int(MailError::Busy);
        QTest::newRow("in small letters") << QByteArray("-err [in-use] locked\r\n") << int(MailError::Busy);
        QTest::newRow("in use, but no refusal") << QByteArray("[IN-USE]\r\n") << int(MailError::Garbled);
        QTest::newRow("nonsense") << QByteArray("hello\r\n") << int(MailError::Garbled);
    }
    void a_refusal_is_told_apart_from_a_busy_mailbox()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, error);
        QList<Fala> acts = Conversa_Boa();
        for (const int step : {2, 3}) { // to the name, and to the password
            QList<Fala> refusing = acts;
            refusing[step].resposta = answer;
            ServidorPop server(refusing);
            QCOMPARE(int(look(server).error), error);
        }
    }

    void four_seconds_for_an_address_fifteen_for_an_answer_and_a_minute_altogether()
    {
        const Pop3Check::Limits limits;
        QCOMPARE(limits.address, 4000);
        QCOMPARE(limits.answer, 15000);
        QCOMPARE(limits.check, 60000);
        const MailServer server;
        QVERIFY(server.port == 110 && !server.tls);
    }

    void a_pause_that_a_server_wants_is_between_none_and_a_day_data()
    {
        QTest::addColumn<QByteArray>("ability");
        QTest::addColumn<int>("seconds");
        QTest::newRow("some") << QByteArray("LOGIN-DELAY 900") << 900;
        QTest::newRow("in small letters") << QByteArray("login-delay 900") << 900;
        QTest::newRow("with a word behind") << QByteArray("LOGIN-DELAY 900 USER") << 900;
        QTest::newRow("a day") << QByteArray("LOGIN-DELAY 86400") << 86400;
        QTest::newRow("more") << QByteArray("LOGIN-DELAY 86401") << 86400;
        QTest::newRow("less than none") << QByteArray("LOGIN-DELAY -5") << 0;
        QTest::newRow("no number") << QByteArray("LOGIN-DELAY soon") << 0;
        QTest::newRow("another") << QByteArray("X-LOGIN-DELAY 900") << 0;
    }
    void a_pause_that_a_server_wants_is_between_none_and_a_day()
    {
        QFETCH(QByteArray, ability);
        QList<Fala> acts = Conversa_Boa();
        acts[1].resposta = "+OK\r\n" + ability + "\r\n.\r\n";
        ServidorPop server(acts);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QTEST(outcome.result.loginDelay, "seconds");
    }

    void two_hundred_abilities_are_heard_and_no_more()
    {
        for (const int abilities : {200, 201}) {
            QList<Fala> acts = Conversa_Boa();
            acts[1].resposta = "+OK\r\n" + QByteArray("X\r\n").repeated(abilities) + ".\r\n";
            ServidorPop server(acts);
            QCOMPARE(look(server).error, abilities > 200 ? MailError::Garbled : MailError::None);
        }
    }

    void a_count_that_is_none_is_garbled_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("no number") << QByteArray("+OK two 300\r\n");
        QTest::newRow("nothing") << QByteArray("+OK\r\n");
        QTest::newRow("less than none") << QByteArray("+OK -1 300\r\n");
        QTest::newRow("refused") << QByteArray("-ERR 2 300\r\n");
    }
    void a_count_that_is_none_is_garbled()
    {
        QFETCH(QByteArray, answer);
        QList<Fala> acts = Conversa_Boa();
        acts[4].resposta = answer;
        ServidorPop server(acts);
        QCOMPARE(look(server).error, MailError::Garbled);
    }

    void a_name_stands_behind_a_number_and_a_blank_data()
    {
        QTest::addColumn<QByteArray>("names");
        QTest::addColumn<QStringList>("uids"); // none for what is garbled
        QTest::newRow("good") << QByteArray("1 a\r\n2  b c \r\n") << QStringList{u"a"_s, u"b c"_s};
        QTest::newRow("fewer than messages") << QByteArray("1 a\r\n") << QStringList{u"a"_s};
        QTest::newRow("no blank") << QByteArray("1\r\n") << QStringList{};
    }
    void a_name_stands_behind_a_number_and_a_blank()
    {
        QFETCH(QByteArray, names);
        QFETCH(QStringList, uids);
        ServidorPop server(Conversa_Boa("+OK 2 300\r\n", names));
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, uids.isEmpty() ? MailError::Garbled : MailError::None);
        QCOMPARE(outcome.result.uids, uids);
    }

    void a_server_that_takes_its_offer_of_encryption_back_is_left()
    {
        ServidorPop server({{"", "+OK\r\n"}, {"CAPA", "+OK\r\nSTLS\r\n.\r\n"}, {"STLS", "-ERR no\r\n"}});
        QCOMPARE(look(server).error, MailError::Garbled);
        QCOMPARE(server.ouvido, (QList<QByteArray>{"CAPA", "STLS"}));
    }

    void what_is_promised_in_the_clear_counts_for_nothing()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        QList<Fala> acts = Conversa_Cifrada();
        acts[1].resposta = "+OK\r\nSTLS\r\nLOGIN-DELAY 900\r\n.\r\n";
        ServidorPop server(acts);
        server.Identificar({});
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.loginDelay, 90); // as it is said encrypted
        acts[3].resposta = "+OK\r\nUIDL\r\n.\r\n";
        ServidorPop silent(acts);
        silent.Identificar({});
        QCOMPARE(look(silent).result.loginDelay, 0);
    }

    void a_line_break_in_a_name_never_reaches_the_server_either()
    {
        for (const QString &name : {u"ana\nDELE 1"_s, u"ana\rDELE 1"_s}) {
            ServidorPop server(Conversa_Boa());
            Pop3Check check({u"127.0.0.1"_s, server.serverPort(), false}, name, u"x"_s, {}, soon);
            QSignalSpy failed(&check, &Pop3Check::failed);
            check.start();
            QTRY_COMPARE(failed.size(), 1);
            QCOMPARE(failed.constFirst().constFirst().value<MailError>(), MailError::Refused);
            QCOMPARE(server.visitas, 0);
        }
    }

    void a_line_break_in_a_password_never_reaches_the_server()
    {
        ServidorPop server(Conversa_Boa());
        QCOMPARE(look(server, {}, u"a\r\nDELE 1"_s).error, MailError::Refused);
        QVERIFY(server.ouvido.isEmpty());
    }

    void a_server_that_misbehaves_at_a_step_is_left_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("error");
        for (int step = 0; step < 6; ++step) {
            QTest::addRow("hangs at step %d", step)
                << step << int(ServidorPop::Fim::Cala) << int(MailError::TimedOut);
            QTest::addRow("closes at step %d", step)
                << step << int(ServidorPop::Fim::Fecha) << int(MailError::Closed);
        }
    }
    void a_server_that_misbehaves_at_a_step_is_left()
    {
        QFETCH(int, step);
        QFETCH(int, end);
        QFETCH(int, error);
        QList<Fala> acts = Conversa_Boa().mid(0, step);
        ServidorPop server(acts, ServidorPop::Fim(end));
        const Outcome outcome = look(server);
        QCOMPARE(int(outcome.error), error);
        QVERIFY2(outcome.longestPause < blocked, qPrintable(QString::number(outcome.longestPause)));
    }

    void a_server_that_drips_is_left_when_the_whole_takes_too_long()
    {
        ServidorPop server(Conversa_Boa(), ServidorPop::Fim::Pinga);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::TimedOut);
        QVERIFY2(outcome.longestPause < blocked, qPrintable(QString::number(outcome.longestPause)));
    }

    // Of a second for each answer, and for each name of a list; all together takes more.
    void each_word_of_a_slow_server_has_its_own_time()
    {
        QByteArray names;
        for (int i = 1; i <= 9; ++i)
            names += QByteArray::number(i) + " a-long-name\r\n";
        ServidorPop server(Conversa_Boa("+OK 9 300\r\n", names), ServidorPop::Fim::Pinga);
        server.gota = 10;
        const Outcome outcome = look(server, {}, u"segredo9"_s, {200, 1000, 30000});
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.uids.size(), 9);
        QCOMPARE(look(server, {}, u"segredo9"_s, {200, 1000, 1500}).error, MailError::TimedOut);
    }

    void a_server_is_left_as_soon_as_all_is_known_data()
    {
        QTest::addColumn<QByteArray>("greeting");
        QTest::newRow("after a failure") << QByteArray("HTTP/1.0 400 Bad Request\r\n");
        QTest::newRow("after all was said") << QByteArray("+OK\r\n");
    }
    void a_server_is_left_as_soon_as_all_is_known()
    {
        QFETCH(const QByteArray, greeting);
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        bool left = false;
        connect(&server, &QTcpServer::newConnection, &server, [&] {
            QTcpSocket *visit = server.nextPendingConnection();
            connect(visit, &QAbstractSocket::disconnected, visit, [&left] { left = true; });
            connect(visit, &QIODevice::readyRead, visit, [visit] {
                const QByteArray asked = visit->readAll();
                visit->write(asked.startsWith("STAT") ? "+OK 0 0\r\n" : "+OK\r\n");
                if (asked.startsWith("CAPA")) visit->write(".\r\n");
            });
            visit->write(greeting);
        });
        Pop3Check check({u"127.0.0.1"_s, server.serverPort(), false}, u"ana"_s, u"x"_s, {}, soon);
        QSignalSpy succeeded(&check, &Pop3Check::succeeded);
        check.start();
        QTRY_VERIFY(left);
        QCOMPARE(succeeded.size(), greeting.startsWith('+') ? 1 : 0);
    }

    void what_is_no_pop3_is_garbled_data()
    {
        QTest::addColumn<QByteArray>("greeting");
        QTest::newRow("a web server") << QByteArray("HTTP/1.0 400 Bad Request\r\n");
        QTest::newRow("binary") << QByteArray("\x00\x01\x02\xff\xfe\r\n", 7);
        QTest::newRow("a line without an end") << QByteArray(20000, 'x');
        QTest::newRow("a very long line") << QByteArray("+OK ") + QByteArray(9000, 'x') + "\r\n";
    }
    void what_is_no_pop3_is_garbled()
    {
        QFETCH(QByteArray, greeting);
        ServidorPop server({{"", greeting}}, ServidorPop::Fim::Cala);
        QCOMPARE(look(server).error, MailError::Garbled);
    }

    void a_line_may_have_8192_bytes_with_its_end_which_may_come_later_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<bool>("later");
        QTest::addColumn<QByteArray>("heard");
        QTest::newRow("as many as there may be") << 8191 << false << QByteArray("CAPA\r\n");
        QTest::newRow("as many, and the end later") << 8191 << true << QByteArray("CAPA\r\n");
        QTest::newRow("one more") << 8192 << false << QByteArray();
        QTest::newRow("one more, and the end later") << 8192 << true << QByteArray();
    }
    void a_line_may_have_8192_bytes_with_its_end_which_may_come_later()
    {
        QFETCH(const int, bytes);
        QFETCH(const bool, later);
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        QByteArray heard;
        connect(&server, &QTcpServer::newConnection, &server, [&] {
            QTcpSocket *visit = server.nextPendingConnection();
            connect(visit, &QIODevice::readyRead, visit, [&heard, visit] { heard += visit->readAll(); });
            const QByteArray line = QByteArray("+OK ").leftJustified(bytes, 'x');
            visit->write(later ? line : line + '\n');
            if (later) QTimer::singleShot(100, visit, [visit] { visit->write("\n"); });
        });
        look(MailServer{u"127.0.0.1"_s, server.serverPort(), false});
        QTEST(heard, "heard");
    }
    void so_many_bytes_without_an_end_are_not_waited_for()
    {
        ServidorPop server({{"", QByteArray("+OK ").leftJustified(8192, 'x')}}, ServidorPop::Fim::Cala);
        QCOMPARE(look(server).error, MailError::Garbled);
        ServidorPop shorter({{"", QByteArray("+OK ").leftJustified(8191, 'x')}}, ServidorPop::Fim::Cala);
        QCOMPARE(look(shorter).error, MailError::TimedOut);
    }

    void an_endless_list_of_names_ends_at_a_hundred_thousand()
    {
        QByteArray names;
        for (int i = 0; i < 100001; ++i)
            names += QByteArray::number(i + 1) + " u" + QByteArray::number(i) + "\r\n";
        ServidorPop server(Conversa_Boa("+OK 200000 1\r\n", names), ServidorPop::Fim::Cala);
        QCOMPARE(look(server, {}, u"segredo9"_s, roomy).error, MailError::Garbled);
    }

    void more_names_than_messages_are_garbled()
    {
        ServidorPop server(Conversa_Boa("+OK 2 300\r\n", "1 a\r\n2 b\r\n3 c\r\n"));
        QCOMPARE(look(server).error, MailError::Garbled);
    }

    void a_server_that_turns_every_visitor_away_is_unreachable_or_busy()
    {
        ServidorPop closed({{"", "-ERR go away\r\n"}}, ServidorPop::Fim::Fecha);
        QCOMPARE(look(closed).error, MailError::Unreachable);
        ServidorPop later({{"", "-ERR [SYS/TEMP] try later\r\n"}}, ServidorPop::Fim::Fecha);
        QCOMPARE(look(later).error, MailError::Busy);
    }

    void answers_without_end_are_left_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<int>("error");
        QTest::newRow("a line") << 0 << QByteArray(4000, 'x') << int(MailError::Garbled);
        QTest::newRow("greetings") << 0 << QByteArray("+OK hello\r\n") << int(MailError::Garbled);
        QTest::newRow("abilities") << 1 << QByteArray("+OK\r\nX-ABILITY\r\n") << int(MailError::Garbled);
        QTest::newRow("names") << 5 << QByteArray("+OK\r\n1 a\r\n") << int(MailError::Garbled);
    }
    void answers_without_end_are_left()
    {
        QFETCH(int, step);
        QFETCH(QByteArray, words);
        QFETCH(int, error);
        QList<Fala> acts = Conversa_Boa().mid(0, step + 1);
        acts.last().resposta = words;
        ServidorPop server(acts, ServidorPop::Fim::Sem_Fim);
        const Outcome outcome = look(server);
        QCOMPARE(int(outcome.error), error);
        QVERIFY2(outcome.longestPause < blocked, qPrintable(QString::number(outcome.longestPause)));
    }

    // It lets nobody in, and nobody that waits is turned away.
    void a_server_whose_queue_is_full_is_left()
    {
        QTcpServer server;
        server.setListenBacklogSize(1);
        QVERIFY(server.listen(QHostAddress::LocalHost));
        server.pauseAccepting();
        std::array<QTcpSocket, 4> queue;
        for (QTcpSocket &each : queue) {
            each.connectToHost(QHostAddress::LocalHost, server.serverPort());
            each.waitForConnected(100);
        }
        if (queue.back().error() != QAbstractSocket::SocketTimeoutError) QSKIP("no queue is ever full here");
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(look(MailServer{u"127.0.0.1"_s, server.serverPort(), false}).error, MailError::TimedOut);
        QVERIFY(clock.elapsed() < soon.check / 2);
    }

    void nobody_listening_is_unreachable_and_no_name_is_not_found()
    {
        QTcpServer closed;
        closed.listen(QHostAddress::LocalHost);
        const quint16 port = closed.serverPort();
        closed.close();
        QCOMPARE(look(MailServer{u"127.0.0.1"_s, port, false}).error, MailError::Unreachable);
        const MailError error = look(MailServer{u"nobody.invalid"_s, 110, false}).error;
        QVERIFY(error == MailError::NotFound ||
                error == MailError::TimedOut); // by how long the look-up takes
    }

    void an_address_that_is_found_after_the_check_has_ended_begins_nothing()
    {
        QTcpServer server;
        QVERIFY(server.listen());
        Pop3Check check({u"localhost"_s, server.serverPort(), false}, u"ana"_s, u"segredo9"_s, {}, {100, 100, 0});
        QSignalSpy failed(&check, &Pop3Check::failed);
        check.start();
        QVERIFY(failed.wait());
        QTest::qWait(600); // in which a connection that it begins would fail as well
        QCOMPARE(failed.count(), 1);
    }

    void encryption_is_taken_where_it_is_offered_and_the_certificate_remembered()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        const Identidade identidade;
        QVERIFY(!identidade.certificado.isNull());
        ServidorPop server(Conversa_Cifrada());
        server.Identificar(identidade);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QVERIFY(outcome.result.trust.encryptedBefore);
        QVERIFY(!outcome.result.trust.fingerprint.isEmpty());
        QCOMPARE(server.ouvido.count("CAPA"), 2);

        ServidorPop again(Conversa_Cifrada());
        again.Identificar(identidade);
        QCOMPARE(look(again, outcome.result.trust).error, MailError::None);

        const Identidade other;
        ServidorPop changed(Conversa_Cifrada());
        changed.Identificar(other);
        QCOMPARE(look(changed, outcome.result.trust).error, MailError::Certificate);
        QVERIFY(!changed.ouvido.contains("PASS segredo9"));
    }

    void an_account_once_encrypted_never_goes_back_to_plain()
    {
        ServidorPop server(Conversa_Boa());
        QCOMPARE(look(server, {true, {}}).error, MailError::NotEncrypted);
        QVERIFY(!server.ouvido.contains("USER ana"));
    }

    void words_smuggled_in_behind_the_stls_answer_are_an_error()
    {
        for (const char *smuggled : {"+OK\r\n.\r\n", "X"}) {
            ServidorPop server({{"", "+OK\r\n"},
                                {"CAPA", "+OK\r\nSTLS\r\n.\r\n"},
                                {"STLS", QByteArray("+OK go\r\n") + smuggled}});
            QCOMPARE(look(server).error, MailError::Garbled);
        }
    }

    void a_server_that_must_be_encrypted_from_the_start_needs_a_good_certificate()
    {
        ServidorPop server(Conversa_Boa(), ServidorPop::Fim::Cala);
        const MailError error = look(MailServer{u"127.0.0.1"_s, server.serverPort(), true}).error;
        QCOMPARE(error, MailError::Certificate);
    }

    void every_error_has_a_short_text_in_every_language()
    {
        for (const QString &language : {u"PortuguesPT"_s, u"PortuguesBR"_s, u"InglesUK"_s, u"EspanholES"_s,
                                        u"ItalianoIT"_s, u"FrancesFR"_s, u"AlemaoDE"_s})
            for (int error = int(MailError::Address); error <= int(MailError::Garbled); ++error) {
                const QString text = mailErrorText(MailError(error), language);
                QVERIFY2(!text.isEmpty() && text.size() <= 42, qPrintable(language + u' ' + text));
            }
        QCOMPARE(mailErrorText(MailError::NotFound, u"?"_s),
                 mailErrorText(MailError::NotFound, u"InglesUK"_s));
    }
};

MORVEX_TESTE(TestPop3Check)
#include "test_Pop3Check.moc"
