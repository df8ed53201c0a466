#include "store/CleanCopy.h"

#include "platform/Failure.h"
#include "platform/ReplaceFile.h"
#include "store/Connection.h"

#include <filesystem>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
void openExisting(Connection &connection, const QString &path)
{
    connection.setDataSource(path);
    connection.Open();
}
} // namespace

void compactDatabase(const QString &source, const QString &copy)
{
    Connection connection;
    openExisting(connection, source);
    connection.execute(u"VACUUM INTO ?"_s, {copy});

    openExisting(connection, copy);
    const QString verdict =
        connection.query(u"PRAGMA integrity_check"_s, {}).Fields("integrity_check").text();
    if (verdict != "ok"_L1)
        throw Failure(Failure::StoreError, copy, u"The copy is damaged: %1"_s.arg(verdict));
}

bool isSameFile(const QString &a, const QString &b)
{
    std::error_code unknown;
    return std::filesystem::equivalent(a.toStdU16String(), b.toStdU16String(), unknown) && !unknown;
}

void copyOver(const QString &source, const QString &target)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        throw Failure(Failure::FileNotFound, source, u"The file could not be read: %1"_s.arg(source));
    if (!replaceFile(target, from.readAll()))
        throw Failure(Failure::PathFileAccess, target, u"The file could not be written: %1"_s.arg(target));
}
