// The data in a file, or in memory. Every write is durable when its call returns; another copy of the program
// on the same file waits its turn.
#pragma once

#include "store/sqlite/FailureKind.h"
#include "store/sqlite/Statement.h"
#include "store/Store.h"

#include <memory>
#include <QHash>
#include <sqlite3.h>
#include <SQLiteCpp/SQLiteCpp.h>

class SqliteStore final : public Store
{
public:
    // These raise Failure for a file that is missing, empty, locked or no database. None creates it.
    static std::unique_ptr<SqliteStore> open(const QString &path);
    // For looking only: nothing is ever written to the file.
    static std::unique_ptr<SqliteStore> openReadOnly(const QString &path);
    static std::unique_ptr<SqliteStore> inMemory();
    // One that grows to about so many bytes at most.
    static std::unique_ptr<SqliteStore> inMemory(qint64 mostBytes);
    // What the file holds at this moment, if it is sound. It is let go at once, untouched.
    static std::unique_ptr<SqliteStore> copyInMemory(const QString &path);
    static bool beginsLikeOne(const QByteArray &start);

    // Looks at all of it. Raises Failure where anything is damaged.
    void requireSound();

    // Of the store's library, as it runs.
    static QString libraryVersion();

    QString place() const override { return path_; }
    Recordset query(const QString &sql, const Values &values) override;
    void rows(const QString &sql, const Values &values, const EachRow &row) override;
    bool rowsWanted(const QString &sql, const Values &values, const QString &columns, const Wanted &wanted,
                    const EachRow &row) override;
    void execute(const QString &sql, Values values) override;
    StoreMark mark() override;
    int written(const QString &sql) const override { return written_.value(sql); }
    int undone() const override { return undone_; }
    void tryWriting() override;
    void waitingOnce(const Work &work) override;
    void gathering(const Work &work) override;
    void allOrNothing(const Work &work) override;
    qint64 lastId() override;
    qint64 highestId(const QString &table) override;
    void giveAgainBehind(const QString &table, qint64 last) override;
    QStringList columns(const QString &table) override;
    bool anyForeign(const QStringList &tables) override;
    QStringList indexes(const QString &table) override;
    int schemaNumber() override;
    void setSchemaNumber(int steps) override;
    void copyTo(const FileCopy &copy) override;
    const Dialect &dialect() const override;
    void releaseMemory() override;

private:
    struct Write {
        QString sql;
        Values values;
    };
    static constexpr int patience = 5000; // ms for which another program's lock is waited for

    SqliteStore(const QString &path, int flags);
    static std::unique_ptr<SqliteStore> openExisting(const QString &path, int flags);
    void copyFrom(const QString &path);
    void requireReadable(const QString &source);

    QStringList names(const QString &sql, const QString &table);
    QString wantedOf(const QString &columns); // what a statement asks of its rows
    Statement &statement(const QString &sql);
    bool step(Statement &statement);
    void run(const Write &write);
    void runAlone(const Write &write);
    void gather(Write write);
    void endGathering();
    void writePortion();
    void runPortionOneByOne();
    void waitAgain();
    bool inTransaction() const { return sqlite3_get_autocommit(handle_.getHandle()) == 0; }

    // Runs that; a lock that it waited for in vain is not waited for again, where that was asked for.
    template<class Action> auto waiting(const Action &action)
    {
        try {
            return action();
        } catch (const SQLite::Exception &error) {
            if (waitsOnce_ && error.getErrorCode() == SQLITE_BUSY) handle_.setBusyTimeout(0);
            throw;
        }
    }

    QString path_;
    SQLite::Database handle_; // declared before the statements: they go before it
    QHash<QString, std::shared_ptr<Statement>> statements_;
    Wanted wanted_; // what the statement that runs asks; empty: it asks nothing
    bool gathering_ = false;
    bool waitsOnce_ = false;
    std::vector<Write> portion_;  // what was run and is not yet in the file
    qsizetype weight_ = 0;        // of its pictures
    int undone_ = 0;              // portions
    QHash<QString, int> written_; // how often each statement is in the file
};
