#include "store/NewDatabase.h"

#include "platform/Failure.h"
#include "store/sqlite/FileName.h"
#include "store/sqlite/TextRules.h"

#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>

void createDatabase(const QString &path, const QStringList &statements, int schemaNumber)
{
    if (QFileInfo::exists(path))
        throw Failure(Failure::StoreError, path, QStringLiteral("The file exists already: %1").arg(path));
    try {
        SQLite::Database database(storeFileName(path), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        registerTextRules(database.getHandle());
        for (const QString &statement : statements)
            database.exec(statement.toStdString());
        if (schemaNumber != 0) database.exec("PRAGMA user_version=" + std::to_string(schemaNumber));
    } catch (const SQLite::Exception &error) {
        throw Failure(Failure::StoreError, path, QString::fromUtf8(error.what()));
    }
}
