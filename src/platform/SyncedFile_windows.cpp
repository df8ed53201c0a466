#include "platform/SyncedFile.h"

#include <io.h>
#include <QFileDevice>
#include <windows.h>

bool isOnTheDisk(const QFileDevice &file)
{
    auto *handle = reinterpret_cast<HANDLE>(::_get_osfhandle(file.handle())); // NOLINT: the system's own word
    return FlushFileBuffers(handle) != 0 || GetLastError() == ERROR_INVALID_FUNCTION;
}
