// Writing: one statement at a time, gathered in portions, or all as one.
#include "store/sqlite/Running.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/StoreErrors.h"

#include <QScopeGuard>
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

void SqliteStore::execute(const QString &sql, Values values)
{
    if (gathering_)
        gather({sql, std::move(values)});
    else
        runAlone({sql, std::move(values)});
}

void SqliteStore::run(const Write &write)
{
    raising::around(path_, write.sql, [&] {
        waiting([&] {
            Statement &prepared = statement(write.sql);
            const Running running(prepared, write.values);
            prepared.run();
        });
    });
}

// Without a transaction round it, so that it is in the file when it returns.
void SqliteStore::runAlone(const Write &write)
{
    const bool alone = !inTransaction();
    run(write);
    ++written_[write.sql];
    if (alone && !inTransaction()) waitAgain();
}

void SqliteStore::waitAgain()
{
    if (waitsOnce_) handle_.setBusyTimeout(patience);
}

void SqliteStore::tryWriting()
{
    run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    const auto takeBack = [this] {
        if (inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
    };
    try {
        raising::around(path_, path_, [&] { waiting([&] { writePages(handle_); }); });
    } catch (const Failure &) {
        takeBack();
        throw;
    }
    takeBack();
}

void SqliteStore::waitingOnce(const Work &work)
{
    waitsOnce_ = true;
    const auto waitsAlways = qScopeGuard([this] {
        waitsOnce_ = false;
        handle_.setBusyTimeout(patience);
    });
    work();
}

void SqliteStore::gathering(const Work &work)
{
    gathering_ = true;
    try {
        work();
    } catch (...) {
        endGathering();
        throw;
    }
    endGathering();
}

void SqliteStore::endGathering()
{
    gathering_ = false;
    writePortion();
}

// A portion is a transaction, and alone with the file from its beginning: beside a reader it would wait anew
// for each page that it has no more room for, and the store keeps that to itself. What the store refuses of
// it leaves the rest; a disk that is full may undo it as a whole.
void SqliteStore::gather(Write write)
{
    if (!inTransaction()) run({QStringLiteral("BEGIN EXCLUSIVE"), {}});
    try {
        run(write);
    } catch (const Failure &) {
        if (inTransaction()) throw;
        portion_.push_back(std::move(write));
        return runPortionOneByOne();
    }
    weight_ += weightOf(write.values);
    portion_.push_back(std::move(write));
    if (portion_.size() >= longestPortion || weight_ >= heaviestPortion) writePortion();
}

void SqliteStore::writePortion()
{
    weight_ = 0;
    if (!inTransaction()) return;
    try {
        run({QStringLiteral("COMMIT"), {}});
        waitAgain();
        for (const Write &write : std::exchange(portion_, {}))
            ++written_[write.sql];
    } catch (const Failure &) {
        if (inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
        runPortionOneByOne();
    }
}

void SqliteStore::runPortionOneByOne()
{
    ++undone_;
    for (const Write &write : std::exchange(portion_, {}))
        runAlone(write);
}

void SqliteStore::allOrNothing(const Work &work)
{
    run({QStringLiteral("BEGIN IMMEDIATE"), {}});
    const auto written = written_;
    try {
        work();
        run({QStringLiteral("COMMIT"), {}});
    } catch (...) {
        written_ = written;
        if (inTransaction()) run({QStringLiteral("ROLLBACK"), {}});
        throw;
    }
}
