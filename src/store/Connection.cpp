#include "store/Connection.h"

#include "platform/Failure.h"
#include "store/FailureKind.h"
#include "store/Row.h"
#include "store/Statement.h"
#include "store/TextRules.h"
#include "store/UntouchedSource.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <sqlite3.h>
#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <utility>

namespace
{
constexpr int patience = 5000; // ms for which another program's lock is waited for
} // namespace

struct Connection::Database {
    // One thread works with a connection: the store need not guard each of its calls.
    Database(const QString &file, int flags)
        : path(file), handle(file.toStdString(), flags | SQLite::OPEN_NOMUTEX)
    {
        registerWanted(handle.getHandle(), wanted);
    }

    QString path;
    SQLite::Database handle; // declared first: the statements go before it
    QHash<QString, std::shared_ptr<Statement>> statements;
    Wanted wanted; // what the statement that runs asks; empty: it asks nothing
    bool gathering = false;
    bool waitsOnce = false;
    std::vector<Write> portion;  // what was run and is not yet in the file
    qsizetype weight = 0;        // of its pictures
    int undone = 0;              // portions
    QHash<QString, int> written; // how often each statement is in the file

    Statement &statement(const QString &sql);
    // Runs that; a lock that it waited for in vain is not waited for again, where that was asked for.
    template<class Work> auto waiting(const Work &work)
    {
        try {
            return work();
        } catch (const SQLite::Exception &error) {
            if (waitsOnce && error.getErrorCode() == SQLITE_BUSY) handle.setBusyTimeout(0);
            throw;
        }
    }
    bool step(Statement &statement)
    {
        return waiting([&] { return statement.step(); });
    }
    void waitAgain()
    {
        if (waitsOnce) handle.setBusyTimeout(patience);
    }
    bool inTransaction() const { return sqlite3_get_autocommit(handle.getHandle()) == 0; }
};

namespace
{
constexpr std::size_t longestPortion = 8000; // writes that reach the file together
constexpr qsizetype heaviestPortion = qsizetype{16} << 20; // bytes that are no texts: pictures
constexpr char sourceName[] = "Connection";

[[noreturn]] void raise(const QString &description, const QString &source = QLatin1String(sourceName),
                        Failure::Kind kind = Failure::Kind::Other)
{
    throw Failure(Failure::StoreError, source, description, kind);
}

QString dataSource(const QString &connectionString)
{
    static const QRegularExpression shape(
        QStringLiteral("(?:^|;)\\s*Data Source\\s*=\\s*'([^']*)'\\s*(?:;[^']*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = shape.match(connectionString);
    if (!match.hasMatch()) raise(QStringLiteral("The connection string is broken: %1").arg(connectionString));
    return match.captured(1);
}

// The dialect of the commands lets DELETE name the columns to delete; a row goes as a whole.
QString translated(const QString &sql)
{
    static const QRegularExpression starredDelete(QStringLiteral("^\\s*DELETE\\s+\\*\\s+FROM\\b"),
                                                  QRegularExpression::CaseInsensitiveOption);
    return QString(sql).replace(starredDelete, QStringLiteral("DELETE FROM"));
}

void bindAll(Statement &statement, const std::vector<StoreValue> &values)
{
    if (statement.parameterCount() != static_cast<int>(values.size()))
        raise(
            QStringLiteral("%1 values for %2 parameters").arg(values.size()).arg(statement.parameterCount()));
    for (std::size_t i = 0; i < values.size(); ++i)
        statement.bind(static_cast<int>(i) + 1, values[i]);
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

qsizetype weightOf(const std::vector<StoreValue> &values)
{
    qsizetype weight = 0;
    for (const StoreValue &value : values)
        if (const auto *bytes = std::get_if<QByteArray>(&value)) weight += bytes->size();
    return weight;
}

// Frees the statement for its next use, whatever became of this one, so that no lock stays behind.
class Running
{
public:
    Running(Statement &statement, const std::vector<StoreValue> &values) : statement_(statement)
    {
        bindAll(statement_, values);
    }
    ~Running() { statement_.release(); }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    Statement &statement_;
};

template<class Work> auto raisingFailures(const QString &path, const QString &source, const Work &work)
{
    try {
        return work();
    } catch (const SQLite::Exception &error) {
        raise(QString::fromUtf8(error.what()), source, kindOf(error, path));
    }
}

// Has the file take pages that it had no room for. What is written is taken back by the caller.
void writePages(SQLite::Database &handle)
{
    handle.exec("CREATE TABLE Trial (Pages)");
    handle.exec("INSERT INTO Trial VALUES (zeroblob(65536))");
    const int result = sqlite3_db_cacheflush(handle.getHandle());
    if (result != SQLITE_OK) throw SQLite::Exception(handle.getHandle(), result);
}

void copyAll(SQLite::Database &target, SQLite::Database &source)
{
    const int result = SQLite::Backup(target, source).executeStep();
    if (result != SQLITE_DONE) throw SQLite::Exception(source.getHandle(), result);
}
} // namespace

Statement &Connection::Database::statement(const QString &sql)
{
    auto &kept = statements[sql];
    if (!kept) kept = std::make_shared<Statement>(handle.getHandle(), translated(sql).toStdString());
    return *kept;
}

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
        raise(QStringLiteral("The database was not found: %1").arg(path), QLatin1String(sourceName),
              Failure::Kind::DatabaseMissing);
    if (info.size() == 0)
        raise(QStringLiteral("The file is no database: %1").arg(path), QLatin1String(sourceName),
              Failure::Kind::DatabaseDamaged);
    return path;
}

void Connection::open(int flags)
{
    const QString path = existingFile();
    database_ = raisingFailures(path, path, [&] {
        auto opened = std::make_unique<Database>(path, flags);
        opened->handle.setBusyTimeout(patience);
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
    database_ = raisingFailures({}, QLatin1String(sourceName), [] {
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
        raisingFailures(path, path, [&] {
            Database file(source.path(), source.flags());
            file.handle.setBusyTimeout(patience);
            copyAll(database_->handle, file.handle);
        });
    } catch (const Failure &) {
        Close();
        throw;
    }
}

void Connection::Close() { database_.reset(); }

void Connection::execute(const QString &sql, std::vector<StoreValue> values)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    if (database_->gathering)
        gather({sql, std::move(values)});
    else
        runAlone({sql, std::move(values)});
}

void Connection::run(const Write &write)
{
    raisingFailures(database_->path, write.sql, [&] {
        database_->waiting([&] {
            Statement &statement = database_->statement(write.sql);
            const Running running(statement, write.values);
            statement.run();
        });
    });
}

// Without a transaction round it, so that it is in the file when it returns.
void Connection::runAlone(const Write &write)
{
    const bool alone = !database_->inTransaction();
    run(write);
    ++database_->written[write.sql];
    if (alone && !database_->inTransaction()) database_->waitAgain();
}

int Connection::undone() const { return database_ ? database_->undone : 0; }

int Connection::written(const QString &sql) const { return database_ ? database_->written.value(sql) : 0; }

void Connection::tryWriting()
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    const auto takeBack = [this] {
        if (database_->inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
    };
    try {
        raisingFailures(database_->path, file(),
                        [&] { database_->waiting([&] { writePages(database_->handle); }); });
    } catch (const Failure &) {
        takeBack();
        throw;
    }
    takeBack();
}

void Connection::waitingOnce(const std::function<void()> &work)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    const auto wait = [this](bool once) {
        database_->waitsOnce = once;
        database_->handle.setBusyTimeout(patience);
    };
    wait(true);
    try {
        work();
    } catch (...) {
        wait(false);
        throw;
    }
    wait(false);
}

void Connection::gathering(const std::function<void()> &work)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    database_->gathering = true;
    try {
        work();
    } catch (...) {
        endGathering();
        throw;
    }
    endGathering();
}

void Connection::endGathering()
{
    database_->gathering = false;
    writePortion();
}

// A portion is a transaction, and alone with the file from its beginning: beside a reader it would wait anew
// for each page that it has no more room for, and the store keeps that to itself. What the store refuses of
// it leaves the rest; a disk that is full may undo it as a whole.
void Connection::gather(Write write)
{
    if (!database_->inTransaction()) run({QStringLiteral("BEGIN EXCLUSIVE"), {}});
    try {
        run(write);
    } catch (const Failure &) {
        if (database_->inTransaction()) throw;
        database_->portion.push_back(std::move(write));
        return runPortionOneByOne();
    }
    database_->weight += weightOf(write.values);
    database_->portion.push_back(std::move(write));
    if (database_->portion.size() >= longestPortion || database_->weight >= heaviestPortion) writePortion();
}

void Connection::writePortion()
{
    database_->weight = 0;
    if (!database_->inTransaction()) return;
    try {
        run({QStringLiteral("COMMIT"), {}});
        database_->waitAgain();
        for (const Write &write : std::exchange(database_->portion, {}))
            ++database_->written[write.sql];
    } catch (const Failure &) {
        if (database_->inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
        runPortionOneByOne();
    }
}

void Connection::runPortionOneByOne()
{
    ++database_->undone;
    for (const Write &write : std::exchange(database_->portion, {}))
        runAlone(write);
}

void Connection::allOrNothing(const std::function<void()> &work)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    const auto written = database_->written;
    try {
        work();
        run({QStringLiteral("COMMIT"), {}});
    } catch (...) {
        database_->written = written;
        if (database_->inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
        throw;
    }
}

Connection::Mark Connection::mark()
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    return raisingFailures(database_->path, QLatin1String(sourceName), [&] {
        return Mark{openings_, database_->handle.execAndGet("PRAGMA data_version").getInt(),
                    sqlite3_total_changes(database_->handle.getHandle())};
    });
}

Recordset Connection::query(const QString &sql, const std::vector<StoreValue> &values)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    return raisingFailures(database_->path, sql, [&] {
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
    if (!database_) raise(QStringLiteral("The connection is closed"));
    raisingFailures(database_->path, sql, [&] {
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
    if (!database_) raise(QStringLiteral("The connection is closed"));
    raisingFailures(database_->path, sql, [&] {
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
    if (!database_) raise(QStringLiteral("The connection is closed"));
    const QScopedValueRollback asked(database_->wanted, wanted);
    rows(sql, values, row);
}

void Connection::releaseMemory()
{
    if (database_) sqlite3_db_release_memory(database_->handle.getHandle());
}
