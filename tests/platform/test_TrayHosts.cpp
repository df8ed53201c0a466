// The newer kind of host, on a message bus of the test's own.
#include "platform/TrayHosts.h"

#include "testlib/Teste.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>

using namespace Qt::StringLiterals;

// A watcher as desktops have it, as far as hosts are concerned. It lives in this very thread, so it cannot
// answer anybody who blocks.
class Watcher final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER host)
public:
    explicit Watcher(bool withHost) : host(withHost)
    {
        bus.registerObject(u"/StatusNotifierWatcher"_s, this,
                           QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals);
        if (!bus.registerService(service)) QTest::qFail("the name is taken", __FILE__, __LINE__);
    }
    ~Watcher() override
    {
        bus.unregisterService(service);
        bus.unregisterObject(u"/StatusNotifierWatcher"_s);
    }
    void takeHost(bool present)
    {
        host = present;
        if (present)
            Q_EMIT StatusNotifierHostRegistered();
        else
            Q_EMIT StatusNotifierHostUnregistered();
    }
    bool host;

Q_SIGNALS:
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

private:
    const QString service = u"org.kde.StatusNotifierWatcher"_s;
    QDBusConnection bus =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"watcher"_s);
};

class TestTrayHosts : public QObject
{
    Q_OBJECT

    QProcess daemon_;

private Q_SLOTS:
    void initTestCase()
    {
        daemon_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        if (!daemon_.waitForStarted()) QSKIP("dbus-daemon is not there");
        QVERIFY(daemon_.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon_.readLine().trimmed());
    }
    void cleanupTestCase()
    {
        daemon_.kill();
        daemon_.waitForFinished();
    }

    void without_a_watcher_there_is_no_host()
    {
        TrayHosts hosts;
        hosts.watch();
        QVERIFY(!hosts.onBus() && !hosts.onSelection());
    }

    void a_watcher_that_comes_later_is_seen_and_its_end_too()
    {
        TrayHosts hosts;
        QSignalSpy changed(&hosts, &TrayHosts::changed);
        hosts.watch();
        auto watcher = std::make_unique<Watcher>(true);
        QTRY_VERIFY(hosts.onBus());
        watcher.reset();
        QTRY_VERIFY(!hosts.onBus());
        watcher = std::make_unique<Watcher>(true);
        QTRY_VERIFY(hosts.onBus());
        QCOMPARE(changed.count(), 3);
    }

    void a_watcher_without_a_host_counts_once_one_registers()
    {
        Watcher watcher(false);
        TrayHosts hosts;
        hosts.watch();
        QTest::qWait(100);
        QVERIFY(!hosts.onBus());
        watcher.takeHost(true);
        QTRY_VERIFY(hosts.onBus());
        watcher.takeHost(false);
        QTRY_VERIFY(!hosts.onBus());
    }

    void a_watcher_that_does_not_answer_holds_nobody_up_and_is_heard_later()
    {
        Watcher watcher(true);
        TrayHosts hosts;
        QElapsedTimer clock;
        clock.start();
        hosts.watch();
        const qint64 took = clock.elapsed();
        QVERIFY2(took < 350,
                 qPrintable(QString::number(took))); // a quarter of a second, and some for the machine
        QVERIFY(!hosts.onBus());
        QTRY_VERIFY(hosts.onBus());
    }
};

MORVEX_TESTE(TestTrayHosts)
#include "test_TrayHosts.moc"
