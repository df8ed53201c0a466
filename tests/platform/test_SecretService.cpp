// Passwords in the desktop's own store: a service of the test's on a bus of its own.
#include "platform/SecretService.h"
#include "testlib/Teste.h"

#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

static const QString guardado = u"guardado k de morvex: l, text/plain; charset=utf8"_s;

class TestSecretService : public QObject
{
    Q_OBJECT

    QProcess bus_;
    std::unique_ptr<QProcess> store_;

    QString heard()
    {
        for (int i = 0; i < 100 && !store_->canReadLine(); ++i)
            store_->waitForReadyRead(50);
        return QString::fromUtf8(store_->readLine()).trimmed();
    }
    void say(const char *line)
    {
        store_->write(QByteArray(line) + '\n');
        QCOMPARE(heard(), u"feito"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty()) QSKIP("dbus-daemon is not installed");
        QProcess python;
        python.start(u"/usr/bin/python3"_s, {u"-c"_s, u"import dbus, gi"_s});
        if (!python.waitForFinished() || python.exitCode() != 0) QSKIP("python3-dbus is not installed");
        QVERIFY(!SecretService().isThere()); // there is no bus yet
        bus_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(bus_.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.readAllStandardOutput().trimmed());
        QVERIFY(!SecretService().isThere()); // nobody offers one on it
        QVERIFY(!SecretService().write(u"k"_s, u"l"_s, u"s"_s));
        QCOMPARE(SecretService().read(u"k"_s), std::nullopt);
    }

    void init()
    {
        store_ = std::make_unique<QProcess>();
        store_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        store_->start(QStringLiteral(MORVEX_SERVIDORES "/porta_chaves"), QStringList());
        QCOMPARE(heard(), u"pronto"_s);
    }
    void cleanup()
    {
        if (!store_) return;
        store_->kill();
        store_->waitForFinished();
    }
    void cleanupTestCase()
    {
        bus_.kill();
        bus_.waitForFinished();
    }

    void what_was_written_is_read_letter_by_letter()
    {
        SecretService secrets;
        QVERIFY(secrets.isThere());
        QVERIFY(secrets.write(u"sincronizacao 7"_s, u"Morvex"_s, u"p-ção 日本 'x'"_s));
        QCOMPARE(heard(), u"guardado sincronizacao 7 de morvex: Morvex, text/plain; charset=utf8"_s);
        QCOMPARE(SecretService().read(u"sincronizacao 7"_s), u"p-ção 日本 'x'"_s);
        QCOMPARE(secrets.read(u"sincronizacao 8"_s), std::nullopt);
    }

    void a_second_one_takes_the_place_of_the_first()
    {
        SecretService secrets;
        QVERIFY(secrets.write(u"k"_s, u"l"_s, u"one"_s) && secrets.write(u"k"_s, u"l"_s, u"two"_s));
        QCOMPARE(secrets.read(u"k"_s), u"two"_s);
        secrets.remove(u"k"_s);
        QCOMPARE(secrets.read(u"k"_s), std::nullopt);
        secrets.remove(u"k"_s);
        QTest::qWait(50);
        QCOMPARE(heard(), guardado);
        QCOMPARE(heard(), guardado);
        say("abre"); // the next thing that it says: nobody was asked
    }

    void what_the_store_refuses_is_not_there_and_not_written()
    {
        SecretService secrets;
        QVERIFY(secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(heard(), guardado);
        say("recusa GetSecret");
        QCOMPARE(secrets.read(u"k"_s), std::nullopt);
        say("recusa Unlock");
        QVERIFY(!secrets.write(u"k"_s, u"l"_s, u"two"_s));
        say("recusa nada");
        QCOMPARE(secrets.read(u"k"_s), u"one"_s);
    }

    void a_store_that_asks_before_it_keeps_one_has_not_kept_it()
    {
        say("pergunta ao guardar");
        SecretService secrets;
        QVERIFY(!secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(secrets.read(u"k"_s), std::nullopt);
    }

    void a_locked_store_that_opens_by_itself_is_opened()
    {
        SecretService secrets;
        QVERIFY(secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(heard(), guardado);
        say("tranca");
        QCOMPARE(secrets.read(u"k"_s), u"one"_s);
    }

    void a_locked_store_asks_the_person_and_is_read_the_next_time()
    {
        SecretService secrets;
        QVERIFY(secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(heard(), guardado);
        say("tranca e pergunta");
        QCOMPARE(secrets.read(u"k"_s), std::nullopt);
        QCOMPARE(heard(), u"pergunta"_s);
        say("abre");
        QCOMPARE(secrets.read(u"k"_s), u"one"_s);
    }

    void nothing_is_written_while_the_person_is_asked()
    {
        SecretService secrets;
        say("tranca e pergunta");
        QVERIFY(!secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(heard(), u"pergunta"_s);
        say("abre"); // the next thing that it says: nothing was put into it
        QCOMPARE(secrets.read(u"k"_s), std::nullopt);
    }

    void a_store_that_asks_before_it_deletes_asks_the_person()
    {
        SecretService secrets;
        QVERIFY(secrets.write(u"k"_s, u"l"_s, u"one"_s));
        QCOMPARE(heard(), guardado);
        say("pergunta ao apagar");
        secrets.remove(u"k"_s);
        QCOMPARE(heard(), u"pergunta"_s);
    }

    void a_store_without_a_place_for_new_ones_is_none()
    {
        say("sem cofre");
        SecretService secrets;
        QVERIFY(!secrets.isThere());
        QVERIFY(!secrets.write(u"k"_s, u"l"_s, u"one"_s));
    }
};

MORVEX_TESTE(TestSecretService)
#include "test_SecretService.moc"
