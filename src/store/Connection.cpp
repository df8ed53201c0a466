#include "store/Connection.h"

#include "store/OpenDatabase.h"
#include "store/Row.h"
#include "store/TextRules.h"
#include "store/UntouchedSource.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <SQLiteCpp/Backup.h>

namespace
{
QString dataSource(const QString &connectionString)
{
    static const QRegularExpression shape(
        QStringLiteral("(?:^|;)\\s*Data Source\\s*=\\s*'([^']*)'\\s*(?:;[^']*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = shape.match(connectionString);
    if (!match.hasMatch())
        raising::failure(QStringLiteral("The connection string is broken: %1").arg(connectionString));
    return match.captured(1);
}

std::vector<QByteArray> columnNames(const Statement &statement)
{
    const int columns = sqlite3_column_count(statement.handle());
    std::vector<QByteArray> names;
    names.reserve(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i)
        names.emplace_back(sqlite3_column_name(statement.handle(), i));
    return names;
}

void append(Cells &cells, const Statement &statement)
{
    const int columns = sqlite3_column_count(statement.handle());
    const Row row(statement.handle());
    for (int i = 0; i < columns; ++i)
        row.addTo(cells, i);
}

void copyAll(SQLite::Database &target, SQLite::Database &source)
{
    const int result = SQLite::Backup(target, source).executeStep();
    if (result != SQLITE_DONE) throw SQLite::Exception(source.getHandle(), result);
}
} // namespace

Connection::Connection() = default;
QString Connection::storeVersion() { return QString::fromLatin1(sqlite3_libversion()); }

Connection::~Connection() = default;

void Connection::Open() { open(SQLite::OPEN_READWRITE); }

void Connection::OpenReadOnly() { open(SQLite::OPEN_READONLY); }

QString Connection::file() const { return dataSource(connectionString_); }

QString Connection::existingFile() const
{
    QString path = file();
    const QFileInfo info(path);
    if (!info.exists())
        raising::failure(QStringLiteral("The database was not found: %1").arg(path), {},
                         Failure::Kind::DatabaseMissing);
    if (info.size() == 0)
        raising::failure(QStringLiteral("The file is no database: %1").arg(path), {},
                         Failure::Kind::DatabaseDamaged);
    return path;
}

void Connection::open(int flags)
{
    const QString path = existingFile();
    database_ = raising::around(path, path, [&] {
        auto opened = std::make_unique<Database>(path, flags);
        opened->handle.setBusyTimeout(Database::patience);
        registerTextRules(opened->handle.getHandle());
        opened->handle.exec("PRAGMA synchronous=FULL");
        opened->handle.execAndGet(
            "SELECT count(*) FROM sqlite_master"); // a file that is no database fails here
        return opened;
    });
    ++openings_;
}

void Connection::OpenInMemory()
{
    database_ = raising::around({}, {}, [] {
        auto opened = std::make_unique<Database>(QStringLiteral(":memory:"),
                                                 SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        registerTextRules(opened->handle.getHandle());
        return opened;
    });
}

void Connection::OpenCopyInMemory()
{
    const QString path = existingFile();
    OpenInMemory();
    try {
        const UntouchedSource source(path);
        raising::around(path, path, [&] {
            Database file(source.path(), source.flags());
            file.handle.setBusyTimeout(Database::patience);
            copyAll(database_->handle, file.handle);
        });
    } catch (const Failure &) {
        Close();
        throw;
    }
}

void Connection::Close() { database_.reset(); }

Connection::Mark Connection::mark()
{
    if (!database_) raising::closed();
    return raising::around(database_->path, {}, [&] {
        return Mark{openings_, database_->handle.execAndGet("PRAGMA data_version").getInt(),
                    sqlite3_total_changes(database_->handle.getHandle())};
    });
}

Recordset Connection::query(const QString &sql, const std::vector<StoreValue> &values)
{
    if (!database_) raising::closed();
    return raising::around(database_->path, sql, [&] {
        Statement &statement = database_->statement(sql);
        const Running running(statement, values);
        Cells cells;
        while (database_->step(statement))
            append(cells, statement);
        return Recordset(columnNames(statement), std::move(cells));
    });
}

void Connection::each(const QString &sql, const std::vector<StoreValue> &values,
                      const std::function<void(const Recordset &)> &row)
{
    if (!database_) raising::closed();
    raising::around(database_->path, sql, [&] {
        Statement &statement = database_->statement(sql);
        const Running running(statement, values);
        while (database_->step(statement)) {
            Cells cells;
            append(cells, statement);
            row(Recordset(columnNames(statement), std::move(cells)));
        }
    });
}

void Connection::rows(const QString &sql, const std::vector<StoreValue> &values,
                      const std::function<void(const Row &)> &row)
{
    if (!database_) raising::closed();
    raising::around(database_->path, sql, [&] {
        Statement &statement = database_->statement(sql);
        const Running running(statement, values);
        const Row current(statement.handle());
        while (database_->step(statement))
            row(current);
    });
}

void Connection::rowsWanted(const QString &sql, const std::vector<StoreValue> &values, const Wanted &wanted,
                            const std::function<void(const Row &)> &row)
{
    if (!database_) raising::closed();
    const QScopedValueRollback asked(database_->wanted, wanted);
    rows(sql, values, row);
}

void Connection::releaseMemory()
{
    if (database_) sqlite3_db_release_memory(database_->handle.getHandle());
}
