#include "platform/SyncedFile.h"

#include <io.h>
#include <QDir>
#include <QFileDevice>
#include <QThread>
#include <windows.h>

bool isOnTheDisk(const QFileDevice &file)
{
    auto *handle = reinterpret_cast<HANDLE>(::_get_osfhandle(file.handle())); // NOLINT: the system's own word
    return FlushFileBuffers(handle) != 0 || GetLastError() == ERROR_INVALID_FUNCTION;
}

namespace
{
bool isHeld(const std::wstring &path)
{
    HANDLE file = CreateFileW(path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}
} // namespace

void waitForReaders(const QString &path)
{
    constexpr int tries = 10;
    constexpr unsigned long pause = 50; // ms
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    for (int i = 0; i < tries && isHeld(native); ++i)
        QThread::msleep(pause);
}
