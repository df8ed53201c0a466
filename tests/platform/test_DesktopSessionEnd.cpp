// The signals that ask the process to end, sent to this very process or to a child of it.
#include "platform/DesktopSessionEnd.h"

#include <csignal>
#include <QtTest>
#include <QWidget>
#include <sys/wait.h>
#include <unistd.h>

class TestDesktopSessionEnd : public QObject
{
    Q_OBJECT

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
