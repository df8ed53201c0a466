// One connection to a server for whoever sets its database up: each call waits for its answer, however long
// that takes. A desk's program uses the store instead, which keeps the interface alive. Everything raises
// Failure with the server's own reason.
#pragma once

#include "store/Recordset.h"
#include "store/Values.h"

#include <functional>
#include <memory>
#include <QString>
#include <vector>

class ServerSession
{
public:
    using Values = std::vector<StoreValue>;

    // Connects. Kind::ServerLost and its likes tell a server that is not reached from one that refuses.
    explicit ServerSession(const QString &address);
    ~ServerSession();
    ServerSession(const ServerSession &) = delete;
    ServerSession &operator=(const ServerSession &) = delete;

    // The address as a person may read it.
    const QString &place() const { return place_; }

    // One or several statements in the server's own words, without values.
    void run(const QString &sql);

    // One statement whose values go to $1, $2 and so on. Numbers, bytes and texts come as the store's values.
    Recordset query(const QString &sql, const Values &values = {});

    // Hands on each row as it arrives, so that a large table never stands in memory.
    void each(const QString &sql, const std::function<void(const Values &)> &row);

    // Fills a table as fast as a server takes rows: runs that, which gives row after row.
    using Give = std::function<void(const Values &)>;
    void copyIn(const QString &table, const QStringList &columns,
                const std::function<void(const Give &)> &rows);

    // All or nothing.
    void together(const std::function<void()> &work);
    // Reads alone, and all of it as it stood at the beginning, whatever others write meanwhile.
    void snapshot(const std::function<void()> &work);

    // A text between quotes, and a name.
    static QString quoted(const QString &text);
    static QString name(const QString &text);

private:
    struct Line;
    [[noreturn]] void raise(const QString &sql) const;
    void within(const QString &begin, const std::function<void()> &work);

    QString place_;
    std::unique_ptr<Line> line_;
};
