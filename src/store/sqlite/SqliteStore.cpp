#include "store/sqlite/SqliteStore.h"

#include "store/sqlite/FileName.h"
#include "store/sqlite/Running.h"
#include "store/sqlite/SqliteRow.h"
#include "store/sqlite/StoreErrors.h"
#include "store/sqlite/TextRules.h"
#include "store/UntouchedSource.h"
#include "store/sqlite/WantedFunction.h"
#include "store/sqlite/WantedPairs.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <SQLiteCpp/Backup.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 pageSize = 4096; // bytes
constexpr int fewWanted = 1000;   // rows; more are read in the order that another index keeps, and not sorted

void copyAll(SQLite::Database &target, SQLite::Database &source)
{
    const int result = SQLite::Backup(target, source).executeStep();
    if (result != SQLITE_DONE) throw SQLite::Exception(source.getHandle(), result);
}

// The dialect of the commands lets DELETE name the columns to delete; a row goes as a whole.
QString translated(const QString &sql)
{
    static const QRegularExpression starredDelete(u"^\\s*DELETE\\s+\\*\\s+FROM\\b"_s,
                                                  QRegularExpression::CaseInsensitiveOption);
    return QString(sql).replace(starredDelete, u"DELETE FROM"_s);
}

void requireFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        raising::failure(u"The database was not found: %1"_s.arg(path), {}, Failure::Kind::DatabaseMissing);
    if (!info.isDir() && info.size() == 0)
        raising::failure(u"The file is no database: %1"_s.arg(path), {}, Failure::Kind::DatabaseDamaged);
}

QString quoted(const QString &name) { return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"'; }

QString textOf(const QString &expression) { return u"COALESCE(%1, '')"_s.arg(expression); }
} // namespace

// One thread works with a connection: the store need not guard each of its calls.
SqliteStore::SqliteStore(const QString &path, int flags)
    : path_(path), handle_(storeFileName(path), flags | SQLite::OPEN_NOMUTEX)
{
    registerWanted(handle_.getHandle(), wanted_);
    registerTextRules(handle_.getHandle());
}

std::unique_ptr<SqliteStore> SqliteStore::openExisting(const QString &path, int flags)
{
    requireFile(path);
    return raising::around(path, path, [&] {
        std::unique_ptr<SqliteStore> opened(new SqliteStore(path, flags));
        opened->handle_.setBusyTimeout(patience);
        opened->handle_.exec("PRAGMA synchronous=FULL");
        opened->handle_.execAndGet(
            "SELECT count(*) FROM sqlite_master"); // a file that is no database fails here
        return opened;
    });
}

std::unique_ptr<SqliteStore> SqliteStore::open(const QString &path)
{
    return openExisting(path, SQLite::OPEN_READWRITE);
}

std::unique_ptr<SqliteStore> SqliteStore::openReadOnly(const QString &path)
{
    return openExisting(path, SQLite::OPEN_READONLY);
}

std::unique_ptr<SqliteStore> SqliteStore::inMemory()
{
    return raising::around({}, {}, [] {
        return std::unique_ptr<SqliteStore>(
            new SqliteStore(u":memory:"_s, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE));
    });
}

std::unique_ptr<SqliteStore> SqliteStore::inMemory(qint64 mostBytes)
{
    auto store = inMemory();
    store->query(u"PRAGMA max_page_count=%1"_s.arg(mostBytes / pageSize), {});
    return store;
}

std::unique_ptr<SqliteStore> SqliteStore::copyInMemory(const QString &path)
{
    requireFile(path);
    auto copy = inMemory();
    copy->copyFrom(path);
    copy->requireReadable(path);
    return copy;
}

bool SqliteStore::beginsLikeOne(const QByteArray &start)
{
    return start.startsWith(QByteArray("SQLite format 3\0", 16));
}

// Without looking whether its indexes agree with its rows.
void SqliteStore::requireReadable(const QString &source)
{
    const QString verdict = query(u"PRAGMA quick_check(1)"_s, {}).Fields("quick_check").text();
    if (verdict != "ok"_L1)
        raising::failure(u"The database is damaged: %1"_s.arg(verdict), source);
}

bool SqliteStore::anyForeign(const QStringList &tables)
{
    const QString sql = u"SELECT name FROM sqlite_master WHERE name COLLATE NOCASE IN (%1) AND "
                        "(type<>'table' OR rootpage=0)"_s.arg(QStringList(tables.size(), u"?"_s).join(u','));
    return query(sql, Values(tables.begin(), tables.end())).RecordCount() > 0;
}

void SqliteStore::copyFrom(const QString &path)
{
    const UntouchedSource source(path);
    raising::around(path, path, [&] {
        SqliteStore file(source.path(), source.flags());
        file.handle_.setBusyTimeout(patience);
        copyAll(handle_, file.handle_);
    });
}

QString SqliteStore::libraryVersion() { return QString::fromLatin1(sqlite3_libversion()); }

Statement &SqliteStore::statement(const QString &sql)
{
    auto &kept = statements_[sql];
    if (!kept) kept = std::make_shared<Statement>(handle_.getHandle(), translated(sql).toStdString());
    return *kept;
}

bool SqliteStore::step(Statement &statement)
{
    return waiting([&] { return statement.step(); });
}

StoreMark SqliteStore::mark()
{
    return raising::around(path_, {}, [&] {
        return StoreMark{.elsewhere = handle_.execAndGet("PRAGMA data_version").getInt(),
                         .here = sqlite3_total_changes(handle_.getHandle())};
    });
}

Recordset SqliteStore::query(const QString &sql, const Values &values)
{
    return raising::around(path_, sql, [&] {
        Statement &prepared = statement(sql);
        const Running running(prepared, values);
        const SqliteRow current(prepared.handle());
        Cells cells;
        while (step(prepared))
            current.addTo(cells);
        return Recordset(current.columnNames(), std::move(cells));
    });
}

void SqliteStore::rows(const QString &sql, const Values &values, const EachRow &row)
{
    raising::around(path_, sql, [&] {
        Statement &prepared = statement(sql);
        const Running running(prepared, values);
        const SqliteRow current(prepared.handle());
        while (step(prepared))
            row(current);
    });
}

// By their pairs, where an index has these and leads to a few rows; or each row of the statement is asked for.
QString SqliteStore::wantedOf(const QString &columns)
{
    const WantedPairs pairs(columns);
    const bool known = pairs.isOfTable() &&
                       query(u"SELECT 1 FROM sqlite_master WHERE type = 'index' AND tbl_name = ?1 AND "
                             "substr(sql, -length(?2)) = ?2"_s,
                             {pairs.table(), u" ON "_s + pairs.indexed()})
                               .RecordCount() > 0;
    if (!known) return u"wanted(%1)"_s.arg(columns);
    const QString count = u"SELECT count(*) AS n FROM (%1 LIMIT %2)"_s.arg(pairs.rows()).arg(fewWanted + 1);
    const bool few = query(count, {}).Fields("n").number() <= fewWanted;
    return few ? u"%1.rowid IN (%2)"_s.arg(pairs.table(), pairs.rows()) : u"wanted(%1)"_s.arg(columns);
}

// Where none is wanted the store is asked once more: without an order the first row answers that.
bool SqliteStore::rowsWanted(const QString &sql, const Values &values, const QString &columns,
                             const Wanted &wanted, const EachRow &row)
{
    const QScopedValueRollback asked(wanted_, wanted);
    qsizetype order = sql.lastIndexOf(" ORDER BY "_L1);
    if (order < 0) order = sql.size();
    bool any = false;
    rows(sql.left(order) + u" AND "_s + wantedOf(columns) + sql.mid(order), values, [&](const Row &one) {
        any = true;
        row(one);
    });
    if (!any) rows(sql.left(order) + u" LIMIT 1"_s, values, [&any](const Row &) { any = true; });
    return any;
}

qint64 SqliteStore::lastId() { return handle_.getLastInsertRowid(); }

qint64 SqliteStore::highestId(const QString &table)
{
    const Recordset rs = query(u"SELECT max(ifnull((SELECT seq FROM sqlite_sequence WHERE name = ?), 0), "
                               "ifnull((SELECT max(ID) FROM %1), 0)) AS ID"_s.arg(quoted(table)),
                               {table});
    return rs.Fields("ID").number();
}

void SqliteStore::giveAgainBehind(const QString &table, qint64 last)
{
    execute(u"UPDATE sqlite_sequence SET seq = ? WHERE name = ?"_s, {last, table});
}

QStringList SqliteStore::names(const QString &sql, const QString &table)
{
    QStringList names;
    for (Recordset rs = query(sql, {table}); !rs.Eof(); rs.MoveNext())
        names << rs.Fields("name").text();
    return names;
}

QStringList SqliteStore::columns(const QString &table)
{
    return names(u"SELECT name FROM pragma_table_info(?)"_s, table);
}

QStringList SqliteStore::indexes(const QString &table)
{
    return names(u"SELECT name FROM pragma_index_list(?)"_s, table);
}

int SqliteStore::schemaNumber()
{
    return query(u"PRAGMA user_version"_s, {}).Fields("user_version").number();
}

void SqliteStore::setSchemaNumber(int steps) { execute(u"PRAGMA user_version=%1"_s.arg(steps), {}); }

// It has its tables from the file itself.
void SqliteStore::copyTo(const FileCopy &copy)
{
    if (QFile::exists(copy.file)) raising::failure(u"The file exists already: %1"_s.arg(copy.file), copy.file);
    try {
        execute(u"VACUUM INTO ?"_s, {copy.file});
        open(copy.file)->requireSound();
    } catch (...) {
        QFile::remove(copy.file);
        throw;
    }
    if (copy.progress) copy.progress(100);
}

void SqliteStore::requireSound()
{
    const QString verdict = query(u"PRAGMA integrity_check"_s, {}).Fields("integrity_check").text();
    if (verdict != "ok"_L1)
        raising::failure(u"The copy is damaged: %1"_s.arg(verdict), path_, Failure::Kind::DatabaseDamaged);
}

const Dialect &SqliteStore::dialect() const
{
    static const Dialect own{quoted, textOf, u" COLLATE MORVEX"_s, u"rowid"_s};
    return own;
}

void SqliteStore::releaseMemory() { sqlite3_db_release_memory(handle_.getHandle()); }
