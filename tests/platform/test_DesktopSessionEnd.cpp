// The signals that ask the process to end, sent to this very process or to a child of it.
#include "platform/DesktopSessionEnd.h"

#include <csignal>
#include <QProcess>
#include <QTest>
#include <QWidget>
#include <sys/wait.h>
#include <unistd.h>

class TestDesktopSessionEnd : public QObject
{
    Q_OBJECT

    // The files that are open in this process, or in one that it starts.
    static QStringList Open_Here()
    {
        return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    }
    static QByteArray Open_In_A_Child()
    {
        QProcess child;
        child.start(QStringLiteral("ls"), {QStringLiteral("/proc/self/fd")});
        return child.waitForFinished() ? child.readAllStandardOutput() : QByteArray();
    }

private Q_SLOTS:
    void each_signal_is_told_by_the_event_loop_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("TERM") << SIGTERM;
        QTest::newRow("INT") << SIGINT;
        QTest::newRow("HUP") << SIGHUP;
    }
    void each_signal_is_told_by_the_event_loop()
    {
        QFETCH(int, number);
        DesktopSessionEnd end;
        QSignalSpy told(&end, &SessionEnd::ending);
        ::raise(number);
        QCOMPARE(told.count(), 0); // the handler itself does nothing
        QTRY_COMPARE(told.count(), 1);
    }

    void a_signal_that_comes_twice_ends_the_process_at_once()
    {
        DesktopSessionEnd end;
        const pid_t child = ::fork();
        if (child == 0) {
            ::raise(SIGTERM);
            ::raise(SIGTERM);
            ::_exit(3); // it went on
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGTERM);
    }

    void different_signals_in_a_row_leave_the_time_for_an_orderly_end()
    {
        DesktopSessionEnd end;
        QSignalSpy told(&end, &SessionEnd::ending);
        ::raise(SIGTERM);
        ::raise(SIGHUP); // as some desktops send it right behind
        QTRY_VERIFY(told.count() >= 1);
    }

    void a_signal_that_was_ignored_stays_ignored()
    {
        const auto before = std::signal(SIGHUP, SIG_IGN);
        {
            DesktopSessionEnd end;
            QSignalSpy told(&end, &SessionEnd::ending);
            ::raise(SIGHUP);
            QTest::qWait(50);
            QCOMPARE(told.count(), 0);
        }
        QVERIFY(std::signal(SIGHUP, before) == SIG_IGN);
    }

    void afterwards_a_signal_does_what_it_did_before()
    {
        const auto before = std::signal(SIGTERM, SIG_DFL);
        {
            DesktopSessionEnd end;
        }
        QVERIFY(std::signal(SIGTERM, before) == SIG_DFL);
    }

    void it_takes_no_file_into_the_programs_that_are_started_and_leaves_none_open()
    {
        const QStringList here = Open_Here();
        const QByteArray in_a_child = Open_In_A_Child();
        QVERIFY(!here.isEmpty() && !in_a_child.isEmpty());
        {
            DesktopSessionEnd end;
            QVERIFY(Open_Here().size() > here.size());
            QCOMPARE(Open_In_A_Child(), in_a_child);
        }
        QCOMPARE(Open_Here(), here);
    }

    void only_the_request_to_quit_and_only_that_to_the_application_is_told()
    {
        DesktopSessionEnd end;
        QSignalSpy told(&end, &SessionEnd::ending);
        QObject another;
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(&another, &quit);
        QEvent other(QEvent::ApplicationFontChange);
        QCoreApplication::sendEvent(qApp, &other);
        QCOMPARE(told.count(), 0);
    }

    void the_desktops_request_to_quit_is_told_and_closes_no_window()
    {
        DesktopSessionEnd end;
        QSignalSpy told(&end, &SessionEnd::ending);
        QWidget window;
        window.show();
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        QCOMPARE(told.count(), 1);
        QVERIFY(window.isVisible());
    }
};

QTEST_MAIN(TestDesktopSessionEnd)
#include "test_DesktopSessionEnd.moc"
