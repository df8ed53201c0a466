// One look into a mailbox: what the checker says to a server, and what it makes of servers that misbehave.
#include "platform/mail/MailServer.h"
#include "platform/mail/MailTexts.h"
#include "platform/mail/Pop3Check.h"
#include "testlib/Teste.h"

#include <QSslKey>
#include <QTcpServer>

using namespace Qt::StringLiterals;

namespace
{
constexpr Pop3Check::Limits soon{200, 300, 3000};
constexpr qint64 blocked = 250; // ms: shorter than any wait for a server, longer than a busy machine's hiccup

// Plays a part in the dialogue: each step waits for a command that begins so and gives the answer. An empty
// command is the greeting, spoken unasked.
struct Act {
    QByteArray command;
    QByteArray answer;
};

class PlayServer : public QTcpServer
{
public:
    enum class End { Serves, Hangs, Closes, Drips };

    explicit PlayServer(QList<Act> acts, End end = End::Serves) : acts_(std::move(acts)), end_(end)
    {
        listen(QHostAddress::LocalHost);
    }

    QList<QByteArray> heard;
    QSslCertificate certificate;
    QSslKey key;

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        connect(socket, &QIODevice::readyRead, this, [this, socket] {
            while (socket->canReadLine())
                hear(*socket, socket->readLine().trimmed());
        });
        if (!acts_.isEmpty() && acts_.constFirst().command.isEmpty()) answer(*socket, acts_.takeFirst());
    }

private:
    void hear(QSslSocket &socket, const QByteArray &command)
    {
        heard << command;
        if (acts_.isEmpty()) {
            if (end_ == End::Closes) socket.close();
            return;
        }
        const Act act = acts_.takeFirst();
        if (!command.startsWith(act.command)) return socket.close();
        answer(socket, act);
    }

    void answer(QSslSocket &socket, const Act &act)
    {
        if (end_ == End::Drips) return drip(socket, act.answer);
        socket.write(act.answer);
        if (act.command == "STLS") encrypt(socket);
        if (acts_.isEmpty() && end_ == End::Closes) socket.disconnectFromHost();
    }

    void encrypt(QSslSocket &socket)
    {
        socket.flush();
        socket.setLocalCertificate(certificate);
        socket.setPrivateKey(key);
        socket.startServerEncryption();
    }

    void drip(QSslSocket &socket, QByteArray rest)
    {
        auto *drops = new QTimer(&socket);
        connect(drops, &QTimer::timeout, &socket, [&socket, drops, rest]() mutable {
            socket.write(rest.left(1));
            rest.remove(0, 1);
            if (rest.isEmpty()) drops->deleteLater();
        });
        drops->start(30);
    }

    QList<Act> acts_;
    End end_;
};

QList<Act> goodPlay(const QByteArray &stat = "+OK 2 300\r\n")
{
    return {{"", "+OK ready <1896.697170952@host>\r\n"},
            {"CAPA", "+OK\r\nUSER\r\nUIDL\r\nLOGIN-DELAY 90\r\n.\r\n"},
            {"USER", "+OK\r\n"},
            {"PASS", "+OK\r\n"},
            {"STAT", stat},
            {"UIDL", "+OK\r\n1 abc\r\n2 def\r\n.\r\n"},
            {"QUIT", "+OK bye\r\n"}};
}

// How long the interface was ever kept from its events.
class Pauses
{
public:
    Pauses()
    {
        clock_.start();
        QObject::connect(&timer_, &QTimer::timeout, &timer_,
                         [this] { longest = std::max(longest, clock_.restart()); });
        timer_.start(1);
    }
    qint64 longest = 0;

private:
    QElapsedTimer clock_;
    QTimer timer_;
};

struct Outcome {
    bool ended = false;
    MailError error = MailError::None;
    Pop3Check::Result result;
    qint64 longestPause = 0;
};

Outcome look(const MailServer &server, const Pop3Check::Trust &trust = {},
             const QString &password = u"segredo9"_s)
{
    Outcome outcome;
    Pop3Check check(server, u"ana"_s, password, trust, soon);
    QObject::connect(&check, &Pop3Check::succeeded, &check, [&](const Pop3Check::Result &result) {
        outcome.ended = true;
        outcome.result = result;
    });
    QObject::connect(&check, &Pop3Check::failed, &check, [&](MailError error) {
        outcome.ended = true;
        outcome.error = error;
    });
    const Pauses pauses;
    check.start();
    [[maybe_unused]] const bool inTime = QTest::qWaitFor([&] { return outcome.ended; }, 8000);
    outcome.longestPause = pauses.longest;
    return outcome;
}

Outcome look(const PlayServer &server, const Pop3Check::Trust &trust = {},
             const QString &password = u"segredo9"_s)
{
    return look({u"127.0.0.1"_s, server.serverPort(), false}, trust, password);
}

// A certificate that no authority vouches for, made anew.
struct Identity {
    Identity()
    {
        const QTemporaryDir folder;
        const QString key_file = folder.filePath(u"k"_s);
        const QString certificate_file = folder.filePath(u"c"_s);
        QProcess::execute(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s,
                                         u"-days"_s, u"30"_s, u"-subj"_s, u"/CN=localhost"_s, u"-keyout"_s,
                                         key_file, u"-out"_s, certificate_file});
        QFile k(key_file);
        QFile c(certificate_file);
        if (k.open(QIODevice::ReadOnly)) key = QSslKey(&k, QSsl::Rsa);
        if (c.open(QIODevice::ReadOnly)) certificate = QSslCertificate(&c);
    }
    QSslKey key;
    QSslCertificate certificate;
};

QList<Act> encryptedPlay()
{
    QList<Act> acts{{"", "+OK\r\n"}, {"CAPA", "+OK\r\nSTLS\r\n.\r\n"}, {"STLS", "+OK begin\r\n"}};
    return acts + goodPlay().mid(1);
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
        PlayServer server(goodPlay());
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 2);
        QCOMPARE(outcome.result.uids, (QStringList{u"abc"_s, u"def"_s}));
        QCOMPARE(outcome.result.loginDelay, 90);
        QVERIFY(!outcome.result.trust.encryptedBefore);
        QCOMPARE(server.heard,
                 (QList<QByteArray>{"CAPA", "USER ana", "PASS segredo9", "STAT", "UIDL", "QUIT"}));
    }

    void an_empty_mailbox_is_not_asked_for_names()
    {
        QList<Act> acts = goodPlay("+OK 0 0\r\n");
        acts.removeAt(5);
        PlayServer server(acts);
        const Outcome outcome = look(server);
        QVERIFY(outcome.ended);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 0);
    }

    void a_server_without_names_gives_the_count_alone()
    {
        QList<Act> acts = goodPlay();
        acts[5].answer = "-ERR what?\r\n";
        PlayServer server(acts);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QCOMPARE(outcome.result.messages, 2);
        QVERIFY(!outcome.result.hasUids);
    }

    void an_old_server_without_capa_is_served_in_the_clear()
    {
        QList<Act> acts = goodPlay();
        acts[1].answer = "-ERR unknown\r\n";
        PlayServer server(acts);
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
        QTest::newRow("nonsense") << QByteArray("hello\r\n") << int(MailError::Garbled);
    }
    void a_refusal_is_told_apart_from_a_busy_mailbox()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, error);
        QList<Act> acts = goodPlay();
        acts[3].answer = answer;
        PlayServer server(acts);
        QCOMPARE(int(look(server).error), error);
    }

    void a_line_break_in_a_password_never_reaches_the_server()
    {
        PlayServer server(goodPlay());
        QCOMPARE(look(server, {}, u"a\r\nDELE 1"_s).error, MailError::Refused);
        QVERIFY(server.heard.isEmpty());
    }

    void a_server_that_misbehaves_at_a_step_is_left_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("error");
        for (int step = 0; step < 6; ++step) {
            QTest::addRow("hangs at step %d", step)
                << step << int(PlayServer::End::Hangs) << int(MailError::TimedOut);
            if (step > 0)
                QTest::addRow("closes at step %d", step)
                    << step << int(PlayServer::End::Closes) << int(MailError::Closed);
        }
    }
    void a_server_that_misbehaves_at_a_step_is_left()
    {
        QFETCH(int, step);
        QFETCH(int, end);
        QFETCH(int, error);
        QList<Act> acts = goodPlay().mid(0, step);
        PlayServer server(acts, PlayServer::End(end));
        if (step == 0 && PlayServer::End(end) == PlayServer::End::Closes)
            return; // no greeting to close behind
        const Outcome outcome = look(server);
        QCOMPARE(int(outcome.error), error);
        QVERIFY2(outcome.longestPause < blocked, qPrintable(QString::number(outcome.longestPause)));
    }

    void a_server_that_drips_is_left_when_the_whole_takes_too_long()
    {
        PlayServer server(goodPlay(), PlayServer::End::Drips);
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::TimedOut);
        QVERIFY2(outcome.longestPause < blocked, qPrintable(QString::number(outcome.longestPause)));
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
        PlayServer server({{"", greeting}}, PlayServer::End::Hangs);
        QCOMPARE(look(server).error, MailError::Garbled);
    }

    void an_endless_list_of_names_ends_at_a_hundred_thousand()
    {
        QByteArray names = "+OK\r\n";
        for (int i = 0; i < 100001; ++i)
            names += QByteArray::number(i + 1) + " u" + QByteArray::number(i) + "\r\n";
        QList<Act> acts = goodPlay();
        acts[5].answer = names;
        PlayServer server(acts, PlayServer::End::Hangs);
        QCOMPARE(look(server).error, MailError::Garbled);
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

    void encryption_is_taken_where_it_is_offered_and_the_certificate_remembered()
    {
        const Identity identity;
        QVERIFY(!identity.certificate.isNull());
        PlayServer server(encryptedPlay());
        server.certificate = identity.certificate;
        server.key = identity.key;
        const Outcome outcome = look(server);
        QCOMPARE(outcome.error, MailError::None);
        QVERIFY(outcome.result.trust.encryptedBefore);
        QVERIFY(!outcome.result.trust.fingerprint.isEmpty());
        QCOMPARE(server.heard.count("CAPA"), 2);

        PlayServer again(encryptedPlay());
        again.certificate = identity.certificate;
        again.key = identity.key;
        QCOMPARE(look(again, outcome.result.trust).error, MailError::None);

        const Identity other;
        PlayServer changed(encryptedPlay());
        changed.certificate = other.certificate;
        changed.key = other.key;
        QCOMPARE(look(changed, outcome.result.trust).error, MailError::Certificate);
        QVERIFY(!changed.heard.contains("PASS segredo9"));
    }

    void an_account_once_encrypted_never_goes_back_to_plain()
    {
        PlayServer server(goodPlay());
        QCOMPARE(look(server, {true, {}}).error, MailError::NotEncrypted);
        QVERIFY(!server.heard.contains("USER ana"));
    }

    void words_smuggled_in_behind_the_stls_answer_are_an_error()
    {
        PlayServer server(
            {{"", "+OK\r\n"}, {"CAPA", "+OK\r\nSTLS\r\n.\r\n"}, {"STLS", "+OK go\r\n+OK\r\n.\r\n"}});
        QCOMPARE(look(server).error, MailError::Garbled);
    }

    void a_server_that_must_be_encrypted_from_the_start_needs_a_good_certificate()
    {
        PlayServer server(goodPlay(), PlayServer::End::Hangs);
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
