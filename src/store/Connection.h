// One connection to a database file. The only place that knows which store lies underneath.
// Every write is durable when its call returns; another copy of the program on the same file waits its turn.
#pragma once

#include "store/Recordset.h"
#include "store/Values.h"
#include "store/Wanted.h"

#include <functional>
#include <memory>
#include <vector>

class Row;

class Connection
{
public:
    Connection();
    ~Connection();

    // Of the store's library, as it runs.
    static QString storeVersion();

    // What to open, as "name=value;" pairs of which "Data Source", between single quotes, names the file. A
    // path with a single quote in it breaks the string: it is not escaped.
    void setConnectionString(const QString &text) { connectionString_ = text; }
    const QString &connectionString() const { return connectionString_; }

    // Raises Failure for a string that is broken and for a file that is missing, empty, locked or no
    // database. Never creates the file.
    void Open();
    // The same for looking only: nothing is ever written to the file.
    void OpenReadOnly();
    // A database of its own in memory, empty.
    void OpenInMemory();
    // A database of its own in memory that holds what the file holds at this moment. The file is let go at
    // once: nobody waits for it, and neither it nor the folder around it has changed.
    void OpenCopyInMemory();
    void Close();
    bool isOpen() const { return database_ != nullptr; }

    // The path that the connection string names. Raises Failure for a string that is broken.
    QString file() const;

    // The connection's own statement for a text, prepared at the first use and kept. Values go to the ?, in
    // their order. Raises Failure with the store's reason.
    void execute(const QString &sql, std::vector<StoreValue> values);
    Recordset query(const QString &sql, const std::vector<StoreValue> &values);

    // The same for rows that need not stand in memory together: hands on each as a recordset of its own,
    // valid until the next one.
    void each(const QString &sql, const std::vector<StoreValue> &values,
              const std::function<void(const Recordset &)> &row);

    // The same for many rows of which little is wanted: hands on each where the store keeps it. The work must
    // not run that statement again.
    void rows(const QString &sql, const std::vector<StoreValue> &values,
              const std::function<void(const Row &)> &row);

    // The same for a statement that asks by itself which rows are wanted (store/Wanted).
    void rowsWanted(const QString &sql, const std::vector<StoreValue> &values, const Wanted &wanted,
                    const std::function<void(const Row &)> &row);

    // Gives up the pages of the file that are kept for a next reading: worth a call where much was read for
    // once.
    void releaseMemory();

    // Another one once anybody, here or in another program, has changed the file.
    struct Mark {
        int opening = 0;   // which of this connection's openings it belongs to
        int elsewhere = 0; // moves on with the writes of others
        int here = 0;      // the rows written since the opening
        bool operator==(const Mark &) const = default;
    };
    // Raises Failure where the file can't be asked. That of a new connection is never a mark of an open one.
    Mark mark();

    // Writes as much as a few pages take, which makes the file grow, and takes all of it back. Raises Failure
    // with the store's reason where the file takes no writing: it is locked, read-only, or on a full disk.
    void tryWriting();

    // Runs that, which must not close the connection, with a lock waited for once: after one wait in vain
    // nothing waits until a write has reached the file.
    void waitingOnce(const std::function<void()> &work);

    // How often that statement has been written since the opening: what is counted is in the file.
    int written(const QString &sql) const;

    // Runs that, which must not close the connection, with its writes gathered: they reach the file in
    // portions, at a fraction of the cost, and all have when this returns or raises. A statement that fails
    // harms no other. Where a portion can't be written as a whole, its statements run once more one by one,
    // up to the first that fails, which is raised. While a portion is open nobody else reads the file.
    void gathering(const std::function<void()> &work);

    // Runs that, which must not close the connection, as one: all that it writes is in the file when this
    // returns, and nothing of it when this raises. From its beginning nobody else writes to the file.
    void allOrNothing(const std::function<void()> &work);

    // How many portions have been undone since the opening. What was read of such a one, the numbers of new
    // rows among it, may not be in the file, or stand for something else there.
    int undone() const;

private:
    struct Database;
    struct Write {
        QString sql;
        std::vector<StoreValue> values;
    };
    void open(int flags);
    QString existingFile() const;
    void run(const Write &write);
    void runAlone(const Write &write);
    void gather(Write write);
    void endGathering();
    void writePortion();
    void runPortionOneByOne();

    std::unique_ptr<Database> database_;
    int openings_ = 0;
    QString connectionString_;
};
