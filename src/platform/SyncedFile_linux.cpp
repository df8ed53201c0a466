#include "platform/SyncedFile.h"

#include <cerrno>
#include <QFileDevice>
#include <unistd.h>

// A file system without this service says EINVAL.
bool isOnTheDisk(const QFileDevice &file) { return ::fsync(file.handle()) == 0 || errno == EINVAL; }

// A file is replaced under its readers.
void waitForReaders(const QString &) {}
