#include "platform/DesktopSound.h"

#include <QDir>
#include <QFileInfo>
#include <windows.h>

#include <mmsystem.h> // knows nothing without what stands before it

// The system plays it, and stops with the process.
class DesktopSound::Player
{
};

DesktopSound::DesktopSound() = default;
DesktopSound::~DesktopSound() = default;

void DesktopSound::play(const QString &file)
{
    if (!QFileInfo(file).isFile()) return;
    const std::wstring path = QDir::toNativeSeparators(QFileInfo(file).absoluteFilePath()).toStdWString();
    PlaySoundW(path.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
}
