#include "platform/ReplaceFile.h"

#include "platform/SyncedFile.h"

FileReplacement::FileReplacement(const QString &path) : file_(path), isGood_(file_.open(QIODevice::WriteOnly))
{
}

bool FileReplacement::append(const QByteArray &portion)
{
    isGood_ = isGood_ && file_.write(portion) == portion.size();
    return isGood_;
}

// That of the toolkit alone is not enough: it puts a file in place that a full disk cut short.
bool FileReplacement::commit()
{
    if (!isGood_ || !file_.flush() || !isOnTheDisk(file_)) return false;
    waitForReaders(file_.fileName());
    return file_.commit();
}

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    FileReplacement file(path);
    return file.append(bytes) && file.commit();
}
