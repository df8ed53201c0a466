#include "store/UntouchedSource.h"

#include "platform/Failure.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto sideFile = "-wal"_L1;

bool writtenAhead(const QString &path)
{
    constexpr qint64 readVersionAt = 19;
    constexpr char ahead = 2;
    QFile file(path);
    char version = 0;
    return file.open(QIODevice::ReadOnly) && file.seek(readVersionAt) && file.getChar(&version) &&
           version == ahead;
}

// Another one once somebody has written to either file.
using Mark = std::array<std::pair<qint64, QDateTime>, 2>;
Mark markOf(const QString &path)
{
    const auto mark = [](const QFileInfo &file) {
        return file.exists() ? std::pair(file.size(), file.lastModified())
                             : std::pair(qint64{-1}, QDateTime());
    };
    return {mark(QFileInfo(path)), mark(QFileInfo(path + sideFile))};
}

void copyFile(const QString &from, const QString &to)
{
    QFile::remove(to);
    if (!QFile::copy(from, to) ||
        !QFile::setPermissions(to, QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        throw Failure(Failure::PathFileAccess, from, u"The file could not be copied: %1"_s.arg(from));
}
} // namespace

UntouchedSource::UntouchedSource(const QString &path) : path_(path)
{
    // The side file stands beside the file itself, not beside a link to it.
    const QString source = QFileInfo(path).canonicalFilePath();
    if (writtenAhead(source)) copy(source);
}

qint64 UntouchedSource::bytes(const QString &path)
{
    const QFileInfo file(path);
    return file.size() + QFileInfo(file.canonicalFilePath() + sideFile).size();
}

int UntouchedSource::flags() const { return folder_ ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY; }

void UntouchedSource::copy(const QString &source)
{
    constexpr int mostTries = 5;
    folder_ = std::make_unique<QTemporaryDir>();
    path_ = folder_->filePath(u"copy.mdb"_s);
    for (int i = 0; i < mostTries; ++i) {
        const Mark before = markOf(source);
        copyFile(source, path_);
        QFile::remove(path_ + sideFile);
        if (QFileInfo::exists(source + sideFile)) copyFile(source + sideFile, path_ + sideFile);
        if (markOf(source) == before) return;
    }
    throw Failure(Failure::StoreError, source, u"The file changes while it is read: %1"_s.arg(source));
}
