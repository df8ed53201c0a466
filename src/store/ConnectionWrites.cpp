// Writing: one statement at a time, gathered in portions, or all as one.
#include "store/OpenDatabase.h"

#include <utility>

namespace
{
constexpr std::size_t longestPortion = 8000;               // writes that reach the file together
constexpr qsizetype heaviestPortion = qsizetype{16} << 20; // bytes that are no texts: pictures

qsizetype weightOf(const std::vector<StoreValue> &values)
{
    qsizetype weight = 0;
    for (const StoreValue &value : values)
        if (const auto *bytes = std::get_if<QByteArray>(&value)) weight += bytes->size();
    return weight;
}

// Has the file take pages that it had no room for. What is written is taken back by the caller.
void writePages(SQLite::Database &handle)
{
    handle.exec("CREATE TABLE Trial (Pages)");
    handle.exec("INSERT INTO Trial VALUES (zeroblob(65536))");
    const int result = sqlite3_db_cacheflush(handle.getHandle());
    if (result != SQLITE_OK) throw SQLite::Exception(handle.getHandle(), result);
}
} // namespace

void Connection::execute(const QString &sql, std::vector<StoreValue> values)
{
    if (!database_) raising::closed();
    if (database_->gathering)
        gather({sql, std::move(values)});
    else
        runAlone({sql, std::move(values)});
}

void Connection::run(const Write &write)
{
    raising::around(database_->path, write.sql, [&] {
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
    if (!database_) raising::closed();
    run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    const auto takeBack = [this] {
        if (database_->inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
    };
    try {
        raising::around(database_->path, file(),
                        [&] { database_->waiting([&] { writePages(database_->handle); }); });
    } catch (const Failure &) {
        takeBack();
        throw;
    }
    takeBack();
}

void Connection::waitingOnce(const std::function<void()> &work)
{
    if (!database_) raising::closed();
    const auto wait = [this](bool once) {
        database_->waitsOnce = once;
        database_->handle.setBusyTimeout(Database::patience);
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
    if (!database_) raising::closed();
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
    if (!database_) raising::closed();
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
