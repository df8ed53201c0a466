#include "platform/ReplaceFile.h"

#include <cerrno>
#include <unistd.h>

namespace
{
// A file system without this service says EINVAL, and then the renaming alone must do.
bool onTheDisk(const QSaveFile &file) { return ::fsync(file.handle()) == 0 || errno == EINVAL; }
} // namespace

FileReplacement::FileReplacement(const QString &path) : file_(path), isGood_(file_.open(QIODevice::WriteOnly))
{
}

bool FileReplacement::append(const QByteArray &portion)
{
    isGood_ = isGood_ && file_.write(portion) == portion.size();
    return isGood_;
}

// That of the toolkit alone is not enough: it puts a file in place that a full disk cut short.
bool FileReplacement::commit() { return isGood_ && file_.flush() && onTheDisk(file_) && file_.commit(); }

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    FileReplacement file(path);
    return file.append(bytes) && file.commit();
}
