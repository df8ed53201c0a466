// A place for the data, as a Connection uses one: a file, or a server that several desks share. Whoever
// stands above Connection never learns which. All calls come from the interface thread; none waits longer
// than the store's patience.
#pragma once

#include "store/Dialect.h"
#include "store/Recordset.h"
#include "store/Row.h"
#include "store/Values.h"

#include <functional>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <string_view>
#include <vector>

// Asked for two texts of a row, of which Null is empty. Must not raise: the store lies between whoever asks
// and who answers.
using Wanted = std::function<bool(std::string_view, std::string_view)>;

// Another one once anybody, here or elsewhere, has changed the data.
struct StoreMark {
    int opening = 0;      // which of a connection's openings it belongs to
    qint64 elsewhere = 0; // moves on with the writes of others
    qint64 here = 0;      // the rows written since the opening
    bool operator==(const StoreMark &) const = default;
};

// What another desk has changed.
struct StoreChange {
    enum class What { Added, Changed, Removed };
    QString table; // in lower case
    What what = What::Changed;
    QList<int> ids;   // of the rows
    bool all = false; // more rows than are named, or no one knows which
    bool operator==(const StoreChange &) const = default;
};

enum class Reach {
    There,
    Lost, // every command fails at once (Failure::Kind::ServerLost) until the store is there again by itself
};

// What became of a write whose answer was lost (Failure::Kind::ServerLost).
enum class Fate {
    None,       // there is no such write
    Unknown,    // until the store is there again
    Arrived,    // it was done
    NotArrived, // nothing of it was done, nor will be
};

// A copy of the data as a database file, which any copy of the program opens.
struct FileCopy {
    struct Table {
        QString name;
        QStringList columns;
        bool counted = false; // its ID is a counter, which never gives a number twice
    };
    QString file;         // nothing may be there yet
    QStringList create;   // the statements that make its tables, empty ones
    QList<Table> tables;  // whose rows are copied
    std::function<void(int percent)> progress; // may raise, which ends the copying
    int schemaNumber = 0; // of the steps that those statements stand for
};

class Store
{
public:
    using Values = std::vector<StoreValue>;
    using Work = std::function<void()>;
    using EachRow = std::function<void(const Row &)>;

    // Whoever wants to hear of others; called between the events of the interface, never inside a command.
    struct Listener {
        std::function<void(const StoreChange &)> changed;
        std::function<void(Reach)> reached;
    };

    Store() = default;
    virtual ~Store() = default;
    Store(const Store &) = delete;
    Store &operator=(const Store &) = delete;

    // Where the data are, as a person may read it: without a password.
    virtual QString place() const = 0;

    // Values go to the ?, in their order. These raise Failure with the store's reason.
    virtual Recordset query(const QString &sql, const Values &values) = 0;
    virtual void rows(const QString &sql, const Values &values, const EachRow &row) = 0;
    // Only the rows whose two columns, "a, t.b", are wanted. The statement has a WHERE, and an ORDER BY at its end
    // or none. Tells whether it has rows at all.
    virtual bool rowsWanted(const QString &sql, const Values &values, const QString &columns,
                            const Wanted &wanted, const EachRow &row) = 0;
    virtual void execute(const QString &sql, Values values) = 0;
    // The same for a row of long work, whose key is kept with it for a month, and while the row stands: whoever
    // does that work again, because a server went away in its middle, learns which of its rows are there. A file
    // does not go away, and keeps none.
    virtual void executeKeyed(const QString &sql, Values values, const QUuid & /*key*/)
    {
        execute(sql, std::move(values));
    }
    virtual QSet<QUuid> keys() { return {}; }
    virtual void dropKeys(const QSet<QUuid> & /*keys*/) {}

    // The opening of a mark is the connection's to fill.
    virtual StoreMark mark() = 0;
    virtual int written(const QString &sql) const = 0;
    virtual int undone() const = 0;
    // How many writes have lost their answer since the opening, and what became of one of them, from 1 on.
    virtual int lostWrites() const { return 0; }
    virtual Fate fateOf(int) const { return Fate::None; }
    virtual void tryWriting() = 0;
    virtual void waitingOnce(const Work &work) = 0;
    virtual void gathering(const Work &work) = 0;
    // The same where a refusal ends the work, which a store may tell only later: nothing behind it is written.
    virtual void gatheringInOrder(const Work &work) { gathering(work); }
    virtual void allOrNothing(const Work &work) = 0;

    // The number of the row that this connection added last.
    virtual qint64 lastId() = 0;
    // The highest number that a table's counter has ever given; 0 for none.
    virtual qint64 highestId(const QString &table) = 0;
    // The numbers behind that one are given once more. The table holds none of them.
    virtual void giveAgainBehind(const QString &table, qint64 last) = 0;

    // The names of a table's columns, in their order; none where there is no such table.
    virtual QStringList columns(const QString &table) = 0;
    // Whether one of these names stands for a view, or for what something else than the store fills.
    virtual bool anyForeign(const QStringList &) { return false; }
    // The names of a table's indexes, in no order.
    virtual QStringList indexes(const QString &table) = 0;
    // How many steps of the schema the data have had, and how many they have had now. A desk of a server does not say
    // the second.
    virtual int schemaNumber() = 0;
    virtual void setSchemaNumber(int steps) = 0;

    // Everything as it stood at one moment; others go on working meanwhile. Raises Failure; then there is no file.
    virtual void copyTo(const FileCopy &copy) = 0;

    virtual const Dialect &dialect() const = 0;
    virtual void releaseMemory() {}
    virtual void listen(const Listener &) {}
};
