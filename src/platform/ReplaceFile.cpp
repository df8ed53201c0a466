#include "platform/ReplaceFile.h"

#include <cerrno>
#include <QSaveFile>
#include <unistd.h>

namespace
{
// A file system without this service says EINVAL, and then the renaming alone must do.
bool onTheDisk(const QSaveFile &file) { return ::fsync(file.handle()) == 0 || errno == EINVAL; }
} // namespace

// commit() alone is not enough: it puts a file in place that a full disk cut short.
bool replaceFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    return file.write(bytes) == bytes.size() && file.flush() && onTheDisk(file) && file.commit();
}
