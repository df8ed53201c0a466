#include "store/sqlite/FailureKind.h"

#include <QFile>
#include <QtEndian>
#include <sqlite3.h>
#include <SQLiteCpp/Exception.h>

namespace
{
// A database begins with these bytes, and somewhat later with the versions of the format and of the store
// that wrote it last.
constexpr char firstBytes[] = "SQLite format 3"; // with the zero at its end
constexpr qsizetype headSize = 100;
constexpr qsizetype formatForReading = 19;
constexpr qsizetype schemaFormat = 44;
constexpr qsizetype writer = 96;
constexpr int newestForReading = 2;
constexpr quint32 newestSchema = 4;

// Who wrote it proves nothing alone; with a definition that is not understood it does.
bool isNewer(const QString &path, bool definitionNotUnderstood)
{
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(headSize) : QByteArray();
    if (head.size() < headSize || !head.startsWith(QByteArrayView(firstBytes, sizeof firstBytes)))
        return false;
    return head[formatForReading] > newestForReading ||
           qFromBigEndian<quint32>(head.constData() + schemaFormat) > newestSchema ||
           (definitionNotUnderstood &&
            qFromBigEndian<qint32>(head.constData() + writer) > sqlite3_libversion_number());
}
} // namespace

Failure::Kind kindOf(const SQLite::Exception &error, const QString &path)
{
    using enum Failure::Kind;
    if (error.getExtendedErrorCode() == SQLITE_READONLY_DBMOVED) return DatabaseMissing;
    const bool definition = QByteArrayView(error.what()).startsWith("malformed database schema");
    constexpr int primary = 0xff; // what an extended code says in more detail
    switch (error.getErrorCode() & primary) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseLocked;
    case SQLITE_READONLY:
        return DatabaseReadOnly;
    case SQLITE_FULL:
        return DiskFull;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return QFile::exists(path) ? DatabaseForbidden : DatabaseMissing;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return isNewer(path, definition) ? DatabaseNewer : DatabaseDamaged;
    case SQLITE_ERROR:
        return isNewer(path, definition) ? DatabaseNewer : Other;
    default:
        return Other;
    }
}
