#include "platform/store/Connection.h"

#include "platform/Failure.h"
#include "platform/store/FailureKind.h"
#include "platform/store/TextRules.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <sqlite3.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <utility>

struct Connection::Database {
    // One thread works with a connection: the store need not guard each of its calls.
    Database(const QString &file, int flags)
        : path(file), handle(file.toStdString(), flags | SQLite::OPEN_NOMUTEX)
    {
    }

    QString path;
    SQLite::Database handle; // declared first: the statements go before it
    QHash<QString, std::shared_ptr<SQLite::Statement>> statements;
    bool gathering = false;
    std::vector<Write> portion; // what was run and is not yet in the file

    SQLite::Statement &statement(const QString &sql);
    bool inTransaction() const { return sqlite3_get_autocommit(handle.getHandle()) == 0; }
};

namespace
{
constexpr int patience = 5000;               // ms for which another program's write is waited for
constexpr std::size_t longestPortion = 8000; // writes that reach the file together
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

struct Binder {
    SQLite::Statement &statement;
    int place;
    void operator()(std::monostate) const { statement.bind(place); }
    void operator()(qint64 number) const { statement.bind(place, static_cast<int64_t>(number)); }
    void operator()(double number) const { statement.bind(place, number); }
    void operator()(const QString &text) const { statement.bind(place, text.toStdString()); }
};

void bindAll(SQLite::Statement &statement, const std::vector<StoreValue> &values)
{
    if (statement.getBindParameterCount() != static_cast<int>(values.size()))
        raise(QStringLiteral("%1 values for %2 parameters")
                  .arg(values.size())
                  .arg(statement.getBindParameterCount()));
    for (std::size_t i = 0; i < values.size(); ++i)
        std::visit(Binder{statement, static_cast<int>(i) + 1}, values[i]);
}

StoreValue cellOf(const SQLite::Column &column)
{
    if (column.isNull()) return {};
    if (column.isInteger()) return qint64{column.getInt64()};
    if (column.isFloat()) return column.getDouble();
    const char *text = column.getText();
    return QString::fromUtf8(text, column.getBytes());
}

std::vector<QByteArray> columnNames(const SQLite::Statement &statement)
{
    std::vector<QByteArray> names;
    names.reserve(static_cast<std::size_t>(statement.getColumnCount()));
    for (int i = 0; i < statement.getColumnCount(); ++i)
        names.emplace_back(statement.getColumnName(i));
    return names;
}

// Frees the statement for its next use, whatever became of this one, so that no lock stays behind.
class Running
{
public:
    Running(SQLite::Statement &statement, const std::vector<StoreValue> &values) : statement_(statement)
    {
        bindAll(statement_, values);
    }
    ~Running()
    {
        statement_.tryReset();
        statement_.clearBindings();
    }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    SQLite::Statement &statement_;
};

template<class Work> auto raisingFailures(const QString &path, const QString &source, const Work &work)
{
    try {
        return work();
    } catch (const SQLite::Exception &error) {
        raise(QString::fromUtf8(error.what()), source, kindOf(error, path));
    }
}
} // namespace

SQLite::Statement &Connection::Database::statement(const QString &sql)
{
    auto &kept = statements[sql];
    if (!kept) kept = std::make_shared<SQLite::Statement>(handle, translated(sql).toStdString());
    return *kept;
}

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open() { open(SQLite::OPEN_READWRITE); }

void Connection::OpenReadOnly() { open(SQLite::OPEN_READONLY); }

void Connection::open(int flags)
{
    const QString path = dataSource(connectionString_);
    const QFileInfo file(path);
    if (!file.exists())
        raise(QStringLiteral("The database was not found: %1").arg(path), QLatin1String(sourceName),
              Failure::Kind::DatabaseMissing);
    if (file.size() == 0)
        raise(QStringLiteral("The file is no database: %1").arg(path), QLatin1String(sourceName),
              Failure::Kind::DatabaseDamaged);
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

void Connection::Close() { database_.reset(); }

void Connection::execute(const QString &sql, std::vector<StoreValue> values)
{
    if (!database_) raise(QStringLiteral("The connection is closed"));
    if (database_->gathering)
        gather({sql, std::move(values)});
    else
        run({sql, std::move(values)});
}

void Connection::run(const Write &write)
{
    raisingFailures(database_->path, write.sql, [&] {
        SQLite::Statement &statement = database_->statement(write.sql);
        const Running running(statement, write.values);
        statement.exec();
    });
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

// A portion is a transaction. What the store refuses of it leaves the rest; a disk that is full may undo it
// as a whole.
void Connection::gather(Write write)
{
    if (!database_->inTransaction()) run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    try {
        run(write);
    } catch (const Failure &) {
        if (database_->inTransaction()) throw;
        database_->portion.push_back(std::move(write));
        return runPortionOneByOne();
    }
    database_->portion.push_back(std::move(write));
    if (database_->portion.size() >= longestPortion) writePortion();
}

void Connection::writePortion()
{
    if (!database_->inTransaction()) return;
    try {
        run({QStringLiteral("COMMIT"), {}});
        database_->portion.clear();
    } catch (const Failure &) {
        if (database_->inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
        runPortionOneByOne();
    }
}

void Connection::runPortionOneByOne()
{
    for (const Write &write : std::exchange(database_->portion, {}))
        run(write);
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
        SQLite::Statement &statement = database_->statement(sql);
        const Running running(statement, values);
        std::vector<StoreValue> cells;
        const int width = statement.getColumnCount();
        while (statement.executeStep())
            for (int i = 0; i < width; ++i)
                cells.push_back(cellOf(statement.getColumn(i)));
        return Recordset(columnNames(statement), std::move(cells));
    });
}
