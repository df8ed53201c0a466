#include "platform/DesktopSound.h"

#include <array>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace
{
struct Program {
    const char *name;
    const char *argument;
};

constexpr std::array programs{Program{"pw-play", ""}, Program{"paplay", ""}, Program{"aplay", "-q"}};
} // namespace

// The first program that plays sounds and that the machine has.
class DesktopSound::Player
{
public:
    Player()
    {
        for (const Program &program : programs) {
            program_ = QStandardPaths::findExecutable(QLatin1String(program.name));
            if (program_.isEmpty()) continue;
            if (*program.argument != '\0') arguments_ << QLatin1String(program.argument);
            break;
        }
        process_.setStandardOutputFile(QProcess::nullDevice());
        process_.setStandardErrorFile(QProcess::nullDevice());
    }
    ~Player() { stop(); }
    Player(const Player &) = delete;
    Player &operator=(const Player &) = delete;

    void play(const QString &path)
    {
        if (program_.isEmpty()) return;
        if (process_.state() != QProcess::NotRunning) stop();
        process_.start(program_, QStringList(arguments_) << path);
    }

private:
    void stop()
    {
        process_.kill();
        process_.waitForFinished();
    }

    QString program_; // empty where the machine has none
    QStringList arguments_;
    QProcess process_;
};

DesktopSound::DesktopSound() : player_(std::make_unique<Player>()) {}
DesktopSound::~DesktopSound() = default;

void DesktopSound::play(const QString &file)
{
    if (QFileInfo(file).isFile()) player_->play(QFileInfo(file).absoluteFilePath());
}
