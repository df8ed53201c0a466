// What an open connection holds, and how its statements run: shared by its reading and its writing.
#pragma once

#include "platform/Failure.h"
#include "store/Connection.h"
#include "store/FailureKind.h"
#include "store/Statement.h"

#include <QHash>
#include <sqlite3.h>
#include <SQLiteCpp/SQLiteCpp.h>

struct Connection::Database {
    static constexpr int patience = 5000; // ms for which another program's lock is waited for

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

// Errors of the store as Failure.
namespace raising
{
[[noreturn]] void failure(const QString &description, const QString &source = {},
                          Failure::Kind kind = Failure::Kind::Other);
[[noreturn]] void closed();

template<class Work> auto around(const QString &path, const QString &source, const Work &work)
{
    try {
        return work();
    } catch (const SQLite::Exception &error) {
        failure(QString::fromUtf8(error.what()), source, kindOf(error, path));
    }
}
} // namespace raising

// Frees the statement for its next use, whatever became of this one, so that no lock stays behind.
class Running
{
public:
    Running(Statement &statement, const std::vector<StoreValue> &values);
    ~Running() { statement_.release(); }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    Statement &statement_;
};
