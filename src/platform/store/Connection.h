// One connection to a database file. The only place that knows which store lies underneath.
// Every write is durable when its call returns; another copy of the program on the same file waits its turn.
#pragma once

#include "platform/store/Recordset.h"
#include "platform/store/Values.h"

#include <memory>
#include <vector>

class Connection
{
public:
    Connection();
    ~Connection();

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
    void Close();
    bool isOpen() const { return database_ != nullptr; }

    // The connection's own statement for a text, prepared at the first use and kept. Values go to the ?, in
    // their order. Raises Failure with the store's reason.
    void execute(const QString &sql, const std::vector<StoreValue> &values);
    Recordset query(const QString &sql, const std::vector<StoreValue> &values);

private:
    struct Database;
    void open(int flags);

    std::unique_ptr<Database> database_;
    QString connectionString_;
};
