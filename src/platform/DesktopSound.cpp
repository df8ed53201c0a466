#include "platform/DesktopSound.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <array>

namespace
{
struct Player {
    const char *program;
    const char *argument;
};

constexpr std::array players{Player{"pw-play", ""}, Player{"paplay", ""}, Player{"aplay", "-q"}};
} // namespace

DesktopSound::DesktopSound()
{
    for (const Player &player : players) {
        program_ = QStandardPaths::findExecutable(QLatin1String(player.program));
        if (program_.isEmpty()) continue;
        if (*player.argument != '\0') arguments_ << QLatin1String(player.argument);
        break;
    }
    player_.setStandardOutputFile(QProcess::nullDevice());
    player_.setStandardErrorFile(QProcess::nullDevice());
}

DesktopSound::~DesktopSound()
{
    player_.kill();
    player_.waitForFinished();
}

void DesktopSound::play(const QString &file)
{
    if (program_.isEmpty() || !QFileInfo(file).isFile()) return;
    if (player_.state() != QProcess::NotRunning) {
        player_.kill();
        player_.waitForFinished();
    }
    player_.start(program_, QStringList(arguments_) << QFileInfo(file).absoluteFilePath());
}
