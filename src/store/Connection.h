// One connection to the data: to a database file, or to a server that several desks share. The only place
// that knows which store lies underneath. Every write is durable when its call returns; others on the same
// data wait their turn.
#pragma once

#include "store/Store.h"

#include <memory>

class Connection
{
public:
    Connection();
    ~Connection();

    // Of the store's library, as it runs.
    static QString storeVersion();

    // Whether that is the address of a server and not a path.
    static bool isAddress(const QString &text);

    // What to open: the address of a server as it is, or "name=value;" pairs of which "Data Source", between
    // single quotes, names the file. A path with a single quote in it breaks the string: it is not escaped.
    void setConnectionString(const QString &text) { connectionString_ = text; }
    const QString &connectionString() const { return connectionString_; }
    // Who opens a server, by its address; raises Failure where that can't be done. The seam of the network:
    // without one an address is opened as it stands.
    using ServerOpener = std::function<std::unique_ptr<Store>(const QString &address)>;
    void setServerOpener(ServerOpener opener) { openServer_ = std::move(opener); }
    // The same from the address or the path alone.
    void setDataSource(const QString &addressOrPath);

    // Raises Failure for a string that is broken and for a file that is missing, empty, locked or no
    // database. Never creates the file.
    void Open();
    // The same for looking only: nothing is ever written to the file.
    void OpenReadOnly();
    // A database of its own in memory, empty, that takes about so many bytes at most.
    void OpenInMemory(qint64 mostBytes);
    // A database of its own in memory that holds what the file holds at this moment. The file is let go at
    // once: nobody waits for it, and neither it nor the folder around it has changed. Raises Failure for a
    // damaged one, too.
    void OpenCopyInMemory();
    // Whether a file that begins so may be a database of the kind that these open.
    static bool beginsLikeOne(const QByteArray &start);
    void Close();
    bool isOpen() const { return store_ != nullptr; }

    // Whether the connection string names a server.
    bool isServer() const { return isAddress(connectionString_); }
    // The path that the connection string names, or the server's address as a person may read it. Raises
    // Failure for a string that is broken.
    QString file() const;

    // Who hears what other desks change, and that the server is away or back. Outlives each opening. On a
    // file nobody is told.
    void setListener(Store::Listener listener);

    // The connection's own statement for a text, prepared at the first use and kept. Values go to the ?, in
    // their order. Raises Failure with the store's reason.
    void execute(const QString &sql, std::vector<StoreValue> values);
    Recordset query(const QString &sql, const std::vector<StoreValue> &values);

    // Of long work on a server, which may go away in its middle: each row, of a table with numbers, is written
    // with a key of its own, and a row with one of the keys that are kept is there. They are kept for a month,
    // but no longer than their rows, unless they are dropped. A file keeps none.
    void executeKeyed(const QString &sql, std::vector<StoreValue> values, const QUuid &key);
    QSet<QUuid> keys();
    void dropKeys(const QSet<QUuid> &keys);

    // The same for rows that need not stand in memory together: hands on each as a recordset of its own,
    // valid until the next one.
    void each(const QString &sql, const std::vector<StoreValue> &values,
              const std::function<void(const Recordset &)> &row);

    // The same for many rows of which little is wanted: hands on each where the store keeps it. The work must
    // not run that statement again.
    void rows(const QString &sql, const std::vector<StoreValue> &values, const Store::EachRow &row);

    // The same for those rows alone of which the two columns, "a, b", are wanted: asked where the store can,
    // before it sorts. The statement has a WHERE, and an ORDER BY at its end or none. Tells whether it has rows
    // at all, wanted or not.
    bool rowsWanted(const QString &sql, const std::vector<StoreValue> &values, const QString &columns,
                    const Wanted &wanted, const Store::EachRow &row);

    // Gives up what is kept of the file for a next reading: worth a call where much was read for once.
    void releaseMemory();

    using Mark = StoreMark;
    // Raises Failure where the data can't be asked. That of a new connection is never a mark of an open one.
    Mark mark();

    // Writes as much as a few pages take, which makes the file grow, and takes all of it back. Raises Failure
    // with the store's reason where nothing can be written: locked, read-only, a full disk, a server away.
    void tryWriting();

    // Runs that, which must not close the connection, with a lock waited for once: after one wait in vain
    // nothing waits until a write has reached the file.
    void waitingOnce(const std::function<void()> &work);

    // How often that statement has been written since the opening: what is counted is in the file.
    int written(const QString &sql) const;

    // Runs that, which must not close the connection, with its writes gathered: they reach the data in
    // portions, at a fraction of the cost, and all have when this returns or raises. A statement that fails
    // harms no other. Where a portion can't be written as a whole, its statements run once more one by one,
    // up to the first that fails, which is raised. While a portion is open nobody else reads the file.
    void gathering(const std::function<void()> &work);

    // The same for work that ends with the first statement that fails: what stands before that one is written,
    // and nothing that stands behind it.
    void gatheringInOrder(const std::function<void()> &work);

    // Runs that, which must not close the connection, as one: all that it writes is there when this returns,
    // and nothing of it when this raises. From its beginning nobody else writes, so that what the work reads
    // stands until its own writes.
    void allOrNothing(const std::function<void()> &work);

    // How many portions have been undone since the opening. What was read of such a one, the numbers of new
    // rows among it, may not be there, or stand for something else.
    int undone() const;

    // How many writes have lost their answer since the opening: one alone, a portion (one, though it was sent
    // twice), or all of allOrNothing. What became of one of them, from 1 on, stands firm once the listener hears
    // that the server is there again; until then nothing else is sent.
    int lostWrites() const;
    Fate fateOf(int lost) const;

    // The number of the row that this connection added last.
    qint64 lastId();
    // The highest number that a table's counter has ever given; 0 for none.
    qint64 highestId(const QString &table);
    // The numbers behind that one are given once more. The table holds none of them.
    void giveAgainBehind(const QString &table, qint64 last);

    // The names of a table's columns, in their order; none where there is no such table.
    QStringList columns(const QString &table);
    // Whether one of these names stands for a view, or for what something else than the database fills.
    bool anyForeign(const QStringList &tables);
    // The names of a table's indexes, in no order.
    QStringList indexes(const QString &table);
    // Makes an index of that name, if there is none, by which rowsWanted of a file asks for each pair that the two
    // columns, "T.a, T.b", hold, and not for each row. A server has no such one.
    void indexPairs(const QString &name, const QString &columns);
    // How many steps of the schema the data have had, and how many they have had now, which is raised on a server.
    int schemaNumber();
    void setSchemaNumber(int steps);

    // Makes a database file with everything as it stands at this moment; others go on working meanwhile. Raises
    // Failure; then there is no file.
    void copyTo(const FileCopy &copy);

    const Dialect &dialect();

private:
    Store &store();
    void opened(std::unique_ptr<Store> store);

    std::unique_ptr<Store> store_;
    Store::Listener listener_;
    ServerOpener openServer_;
    int openings_ = 0;
    QString connectionString_;
};
