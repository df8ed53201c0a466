// The mail checker over time: what counts as new, how often it looks, and what it remembers.
#include "mail/PopMailNotification.h"

#include "mail/MailTexts.h"
#include "testlib/DiscoCheio.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/ServidorPop.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr PopMailNotification::Pace quick{400ms, 900ms, {500, 1000, 5000}};
constexpr int watching = 3000; // ms within which something must have been seen

QList<Fala> mailbox(int messages)
{
    QByteArray names;
    for (int i = 1; i <= messages; ++i)
        names += QByteArray::number(i) + " name" + QByteArray::number(i) + "\r\n";
    QList<Fala> acts = Conversa_Boa("+OK " + QByteArray::number(messages) + " 300\r\n", names);
    acts[1].resposta = "+OK\r\nUIDL\r\n.\r\n";
    if (messages == 0) acts.removeAt(5);
    return acts;
}

QList<Fala> refusing(const QByteArray &answer)
{
    QList<Fala> acts = mailbox(1).mid(0, 4);
    acts.last().resposta = answer;
    return acts;
}

// The checker on a mailbox of the server, with a file of its own.
struct Watch {
    explicit Watch(const ServidorPop &server, const QString &file) : Watch(file)
    {
        mail.setServidor(u"127.0.0.1:"_s + QString::number(server.serverPort()));
        mail.setConta(u"ana.silva"_s);
        mail.setSenha(u"segredo9"_s);
    }
    explicit Watch(const QString &file)
        : mail(
              file, [] { return u"InglesUK"_s; }, quick)
    {
    }

    bool sees(int messages)
    {
        return QTest::qWaitFor([this] { return mail.NumeroMensagens() > 0; }, watching) &&
               mail.TemCorreio() && mail.NumeroMensagens() == messages;
    }
    QString failure()
    {
        return QTest::qWaitFor([this] { return mail.Falhou(); }, watching) ? mail.TextoErro() : QString();
    }
    void restart()
    {
        mail.setActivo(false);
        mail.setActivo(true);
    }

    PopMailNotification mail;
};

// What a look into a mailbox of a server with names has found, or of one without.
Pop3Check::Result found(int messages, const QStringList &uids = {})
{
    Pop3Check::Result result;
    result.messages = messages;
    result.uids = uids;
    result.hasUids = !uids.isEmpty();
    return result;
}

// Until the server was left for the given time in all.
bool visited(const ServidorPop &server, int times)
{
    return QTest::qWaitFor([&] { return server.ouvido.count("QUIT") >= times; }, watching);
}
} // namespace

class TestPopMailNotification : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;
    QString file() const { return folder_->filePath(u"correio.json"_s); }
    QByteArray stored() const
    {
        QFile memory(file());
        return memory.open(QIODevice::ReadOnly) ? memory.readAll() : QByteArray();
    }

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void a_minute_between_two_looks_and_a_quarter_of_one_after_a_good_look()
    {
        const PopMailNotification::Pace pace;
        QCOMPARE(pace.betweenChecks, 60s);
        QCOMPARE(pace.afterGoodCheck, 15s);
        QCOMPARE(pace.limits.check, Pop3Check::Limits{}.check);
    }

    void before_it_watches_there_is_no_mail_and_no_failure()
    {
        Watch watch(file());
        QCOMPARE(watch.mail.NumeroMensagens(), qint16{0});
        QVERIFY(!watch.mail.TemCorreio());
        QVERIFY(!watch.mail.Falhou());
    }

    void at_the_first_sight_of_a_mailbox_all_is_new()
    {
        ServidorPop server(mailbox(3));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(3));
        QVERIFY(!watch.mail.Falhou());
        QCOMPARE(watch.mail.TextoErro(), QString());
    }

    void an_empty_mailbox_has_no_mail()
    {
        ServidorPop server(mailbox(0));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(visited(server, 1));
        QTest::qWait(50);
        QVERIFY(!watch.mail.TemCorreio());
        QVERIFY(!watch.mail.Falhou());
    }

    void what_was_announced_is_not_new_again_and_only_the_rest_is()
    {
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        watch.restart();
        QVERIFY(visited(server, 2));
        QTest::qWait(50);
        QVERIFY(!watch.mail.TemCorreio());
        server.falas = mailbox(5);
        watch.restart();
        QVERIFY(watch.sees(3));
    }

    void what_was_announced_is_remembered_over_a_restart_of_the_program()
    {
        ServidorPop server(mailbox(2));
        {
            Watch watch(server, file());
            watch.mail.setActivo(true);
            QVERIFY(watch.sees(2));
        }
        Watch again(server, file());
        again.mail.setActivo(true);
        QVERIFY(visited(server, 2));
        QTest::qWait(50);
        QVERIFY(!again.mail.TemCorreio());
        server.falas = mailbox(3);
        QVERIFY(again.sees(1));
    }

    void what_nobody_read_is_announced_after_a_restart()
    {
        ServidorPop server(mailbox(2));
        {
            Watch watch(server, file());
            watch.mail.setActivo(true);
            QVERIFY(visited(server, 1));
            QTRY_COMPARE(watch.mail.NumeroMensagens(), qint16{2});
        }
        Watch again(server, file());
        again.mail.setActivo(true);
        QVERIFY(again.sees(2));
    }

    void two_accounts_on_one_server_are_told_apart()
    {
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        watch.mail.setActivo(false);
        watch.mail.setConta(u"rui"_s);
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
    }

    void mail_that_comes_while_it_watches_is_found()
    {
        ServidorPop server(mailbox(0));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(visited(server, 1));
        QVERIFY(!watch.mail.TemCorreio());
        server.falas = mailbox(1);
        QVERIFY(watch.sees(1));
    }

    void a_server_without_names_is_judged_by_its_count()
    {
        ServidorPop server(mailbox(2));
        server.falas[5].resposta = "-ERR no names\r\n";
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        server.falas[4].resposta = "+OK 3 400\r\n";
        watch.restart();
        QVERIFY(watch.sees(1));
    }

    void a_restart_of_an_account_soon_after_a_good_check_waits()
    {
        ServidorPop server(mailbox(1));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(1));
        QElapsedTimer clock;
        clock.start();
        watch.restart();
        QVERIFY(visited(server, 2));
        QVERIFY2(clock.elapsed() > 700, qPrintable(QString::number(clock.elapsed())));
        watch.mail.setActivo(false);

        watch.mail.setConta(u"rui"_s); // another account is not held up
        clock.start();
        watch.mail.setActivo(true);
        QVERIFY(visited(server, 3));
        QVERIFY2(clock.elapsed() < 500, qPrintable(QString::number(clock.elapsed())));
    }

    void a_server_that_wants_longer_pauses_gets_them()
    {
        QList<Fala> acts = mailbox(0);
        acts[1].resposta = "+OK\r\nLOGIN-DELAY 2\r\n.\r\n";
        ServidorPop server(acts);
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(visited(server, 1));
        QTest::qWait(1200);
        QCOMPARE(server.visitas, 1);
        QVERIFY(visited(server, 2));
    }

    void a_busy_mailbox_is_told_of_at_the_third_time_running()
    {
        ServidorPop server(refusing("-ERR [IN-USE] locked by another\r\n"));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QTRY_COMPARE(server.visitas, 2);
        QTest::qWait(150);
        QVERIFY(!watch.mail.Falhou());
        QCOMPARE(watch.failure(), mailErrorText(MailError::Busy, u"InglesUK"_s));
        QCOMPARE(server.visitas, 3);
    }

    void a_good_check_in_between_begins_the_count_anew()
    {
        ServidorPop server(refusing("-ERR [SYS/TEMP] later\r\n"));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QTRY_COMPARE(server.visitas, 2);
        QTest::qWait(150);
        server.falas = mailbox(0);
        QTRY_COMPARE(server.visitas, 3);
        QTest::qWait(150);
        server.falas = refusing("-ERR [SYS/TEMP] later\r\n");
        QTRY_COMPARE(server.visitas, 5);
        QTest::qWait(150);
        QVERIFY(!watch.mail.Falhou());
    }

    void a_failure_passes_when_the_next_check_is_good()
    {
        ServidorPop server(refusing("-ERR [AUTH] segredo9 is wrong\r\n"));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QCOMPARE(watch.failure(),
                 mailErrorText(MailError::Refused, u"InglesUK"_s)); // not what the server said
        server.falas = mailbox(1);
        QVERIFY(watch.sees(1));
        QVERIFY(!watch.mail.Falhou());
    }

    void a_server_that_is_none_fails_without_a_visit()
    {
        Watch watch(file());
        watch.mail.setServidor(u"not a server"_s);
        watch.mail.setActivo(true);
        QCOMPARE(watch.failure(), mailErrorText(MailError::Address, u"InglesUK"_s));
    }

    void a_stop_clears_the_results()
    {
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        watch.mail.setActivo(false);
        QVERIFY(!watch.mail.TemCorreio());
        QCOMPARE(watch.mail.NumeroMensagens(), qint16{0});

        server.falas = refusing("-ERR no\r\n");
        watch.mail.setConta(u"rui"_s);
        watch.mail.setActivo(true);
        QVERIFY(!watch.failure().isEmpty());
        watch.mail.setActivo(false);
        QVERIFY(!watch.mail.Falhou());
        QCOMPARE(watch.mail.TextoErro(), QString());
    }

    void a_check_that_was_stopped_has_no_late_result()
    {
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QTRY_VERIFY(server.ouvido.contains("STAT"));
        watch.mail.setActivo(false);
        QTest::qWait(600);
        QCOMPARE(server.visitas, 1);
        QVERIFY(!watch.mail.TemCorreio());
        QVERIFY(!watch.mail.Falhou());
    }

    void another_certificate_later_is_a_failure_even_after_a_restart()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        ServidorPop server(Conversa_Cifrada());
        server.Identificar({});
        {
            Watch watch(server, file());
            watch.mail.setActivo(true);
            QVERIFY(watch.sees(2));
        }
        server.Identificar({});
        Watch again(server, file());
        again.mail.setActivo(true);
        QCOMPARE(again.failure(), mailErrorText(MailError::Certificate, u"InglesUK"_s));
        QCOMPARE(server.ouvido.count("PASS segredo9"), 1);
    }

    void only_its_owner_can_read_what_is_remembered()
    {
        if (!SemPrivilegios::Ha_Direitos_Por_Ficheiro()) QSKIP("a file has the rights of its folder here");
        ServidorPop server(mailbox(1));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(1));
        const QFile::Permissions everybodyElse = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                                 QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QVERIFY(QFile::exists(file()));
        QCOMPARE(QFile::permissions(file()) & everybodyElse, QFile::Permissions());
    }

    void nothing_that_is_remembered_says_whose_it_is()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        ServidorPop server(Conversa_Cifrada());
        server.Identificar({});
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        QVERIFY(!stored().isEmpty());
        for (const char *secret : {"segredo", "ana", "silva", "127.0", "\"abc\""})
            QVERIFY2(!stored().contains(secret), secret);
    }

    void a_full_disk_is_borne_in_silence_and_the_session_still_remembers()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        {
            const DiscoCheio full(0);
            watch.mail.setActivo(true);
            QVERIFY(watch.sees(2));
            watch.restart();
            QVERIFY(visited(server, 2));
            QTest::qWait(50);
            QVERIFY(!watch.mail.TemCorreio());
            QVERIFY(!watch.mail.Falhou());
        }
        QCOMPARE(stored(), QByteArray());
    }

    void a_folder_that_may_not_be_written_is_borne_in_silence()
    {
        ServidorPop server(mailbox(2));
        QFile::setPermissions(folder_->path(), QFile::ReadOwner | QFile::ExeOwner);
        {
            const SemPrivilegios nobody;
            if (!nobody.Possivel()) QSKIP("this machine does not let go of an administrator's rights");
            Watch watch(server, file());
            watch.mail.setActivo(true);
            QVERIFY(watch.sees(2));
            QVERIFY(!watch.mail.Falhou());
        }
        QFile::setPermissions(folder_->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(!QFile::exists(file()));
    }

    // As the program has always written it: hashes of the mailbox and, with it, of each message's name.
    void a_memory_of_an_earlier_version_still_counts()
    {
        QFile memory(file());
        QVERIFY(memory.open(QIODevice::WriteOnly));
        memory.write(R"({"09c15aa35526c186faebf7e969b5806a":{"certificate":"0a1b","count":2,"tls":true,)"
                     R"("uids":["a7187353fd3e3877438e0507d445630f"]}})");
        memory.close();
        const QString ana = u"pop.example\nana"_s;
        SeenMail seen(file());
        const Pop3Check::Trust trust = seen.trust(ana);
        QVERIFY(trust.encryptedBefore);
        QCOMPARE(trust.fingerprint, QByteArray("0a1b"));
        QCOMPARE(seen.countNew(ana, found(2, {u"abc"_s, u"def"_s})), 1);
        QCOMPARE(seen.countNew(ana, found(3)), 1);
        QCOMPARE(seen.countNew(ana, found(2)), 0);
        QCOMPARE(seen.countNew(ana, found(1)), 0); // some were fetched meanwhile
        QCOMPARE(seen.countNew(u"pop.example\nrui"_s, found(2)), 2);
        const QByteArray before = stored();
        seen.remember(ana, trust);
        QCOMPARE(stored(), before);
        seen.announce(ana, found(2, {u"abc"_s}));
        QCOMPARE(stored(), before);
        seen.remember(ana, {true, "ff"});
        QCOMPARE(SeenMail(file()).trust(ana).fingerprint, QByteArray("ff"));
    }

    void what_was_announced_is_written_once()
    {
        ServidorPop server(mailbox(2));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(2));
        QVERIFY(QFile::remove(file()));
        QVERIFY(watch.mail.TemCorreio());
        QVERIFY(!QFile::exists(file()));
    }

    void a_memory_that_is_no_memory_begins_anew()
    {
        QFile broken(file());
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("{\"half");
        broken.close();
        ServidorPop server(mailbox(1));
        Watch watch(server, file());
        watch.mail.setActivo(true);
        QVERIFY(watch.sees(1));
        QVERIFY(stored().startsWith('{') && stored().endsWith('}'));
    }
};

MORVEX_TESTE(TestPopMailNotification)
#include "test_PopMailNotification.moc"
