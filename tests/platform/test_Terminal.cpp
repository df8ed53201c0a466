// The terminal that the program was started from, if it was: what is said on it, and how it is told from a desktop.
#include "platform/Terminal.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <QTemporaryFile>
#include <QTest>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
// One of the program's three streams leads elsewhere while one lives.
class Led
{
public:
    Led(int stream, int elsewhere) : stream_(stream), before_(::dup(stream))
    {
        std::fflush(nullptr);
        ::dup2(elsewhere, stream_);
    }
    ~Led()
    {
        std::fflush(nullptr);
        ::dup2(before_, stream_);
        ::close(before_);
    }
    Led(const Led &) = delete;
    Led &operator=(const Led &) = delete;

private:
    int stream_;
    int before_;
};

constexpr std::array streams{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

// With all streams elsewhere than on a terminal, but for that one.
bool fromDesktop(int onATerminal, int terminal, int elsewhere)
{
    std::array<std::unique_ptr<Led>, streams.size()> led;
    for (std::size_t i = 0; i < streams.size(); ++i)
        led[i] = std::make_unique<Led>(streams[i], streams[i] == onATerminal ? terminal : elsewhere);
    return terminal::startedFromDesktop();
}

QByteArray written(const QTemporaryFile &file)
{
    QFile read(file.fileName());
    return read.open(QIODevice::ReadOnly) ? read.readAll() : QByteArray("<unread>");
}
} // namespace

class TestTerminal : public QObject
{
    Q_OBJECT

    int controller_ = -1;
    int terminal_ = -1;
    int nowhere_ = -1;

private Q_SLOTS:
    void initTestCase()
    {
        controller_ = ::posix_openpt(O_RDWR | O_NOCTTY);
        if (controller_ < 0 || ::grantpt(controller_) != 0 || ::unlockpt(controller_) != 0)
            QSKIP("no terminal can be had here");
        terminal_ = ::open(::ptsname(controller_), O_RDWR | O_NOCTTY);
        nowhere_ = ::open("/dev/null", O_RDWR);
        QVERIFY(terminal_ >= 0 && nowhere_ >= 0);
    }
    void cleanupTestCase()
    {
        for (const int each : {controller_, terminal_, nowhere_})
            if (each >= 0) ::close(each);
    }

    void a_desktop_has_a_screen_and_gives_no_terminal_data()
    {
        QTest::addColumn<QByteArray>("screen");
        QTest::addColumn<int>("onATerminal");
        QTest::addColumn<bool>("fromDesktop");
        for (const char *screen : {"DISPLAY", "WAYLAND_DISPLAY"}) {
            QTest::addRow("%s, no terminal", screen) << QByteArray(screen) << -1 << true;
            for (const int stream : streams)
                QTest::addRow("%s, stream %d on one", screen, stream) << QByteArray(screen) << stream << false;
        }
        QTest::newRow("no screen") << QByteArray() << -1 << false;
        QTest::newRow("no screen, on a terminal") << QByteArray() << STDIN_FILENO << false;
    }
    void a_desktop_has_a_screen_and_gives_no_terminal()
    {
        QFETCH(const QByteArray, screen);
        QFETCH(const int, onATerminal);
        for (const char *each : {"DISPLAY", "WAYLAND_DISPLAY"})
            qunsetenv(each);
        if (!screen.isEmpty()) qputenv(screen.constData(), "x");
        const bool answer = fromDesktop(onATerminal, terminal_, nowhere_);
        QTEST(answer, "fromDesktop");
    }

    void an_answer_and_a_complaint_have_a_stream_each()
    {
        QTemporaryFile answers;
        QTemporaryFile complaints;
        QVERIFY(answers.open() && complaints.open());
        {
            const Led out(STDOUT_FILENO, answers.handle());
            const Led err(STDERR_FILENO, complaints.handle());
            terminal::print(terminal::Stream::Answer, u"Morvex 1.0\n"_s);
            terminal::print(terminal::Stream::Complaint, u"no such option\n"_s);
        }
        QCOMPARE(written(answers), QByteArray("Morvex 1.0\n"));
        QCOMPARE(written(complaints), QByteArray("no such option\n"));
    }
};

QTEST_APPLESS_MAIN(TestTerminal)
#include "test_Terminal.moc"
