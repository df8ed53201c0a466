#include "store/Connection.h"

#include "store/Raising.h"
#include "store/ServerStore.h"
#include "store/sqlite/SqliteStore.h"
#include "store/sqlite/WantedPairs.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
QString dataSource(const QString &connectionString)
{
    static const QRegularExpression shape(u"(?:^|;)\\s*Data Source\\s*=\\s*'([^']*)'\\s*(?:;[^']*)?$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    const auto match = shape.match(connectionString);
    if (!match.hasMatch()) raising::failure(u"The connection string is broken: %1"_s.arg(connectionString));
    return match.captured(1);
}
} // namespace

Connection::Connection() = default;
Connection::~Connection() = default;

QString Connection::storeVersion() { return SqliteStore::libraryVersion(); }

bool Connection::isAddress(const QString &text) { return server_store::isAddress(text); }

void Connection::setDataSource(const QString &addressOrPath)
{
    setConnectionString(isAddress(addressOrPath) ? addressOrPath : u"Data Source='%1'"_s.arg(addressOrPath));
}

QString Connection::file() const
{
    return isServer() ? server_store::shown(connectionString_) : dataSource(connectionString_);
}

void Connection::opened(std::unique_ptr<Store> store)
{
    store_ = std::move(store);
    store_->listen(listener_);
    ++openings_;
}

void Connection::Open()
{
    if (!isServer()) return opened(SqliteStore::open(file()));
    opened(openServer_ ? openServer_(connectionString_) : server_store::open(connectionString_));
}

void Connection::OpenReadOnly()
{
    if (isServer())
        opened(server_store::openReadOnly(connectionString_));
    else
        opened(SqliteStore::openReadOnly(file()));
}

void Connection::OpenInMemory(qint64 mostBytes) { opened(SqliteStore::inMemory(mostBytes)); }

void Connection::OpenCopyInMemory() { opened(SqliteStore::copyInMemory(file())); }

bool Connection::beginsLikeOne(const QByteArray &start) { return SqliteStore::beginsLikeOne(start); }

void Connection::Close() { store_.reset(); }

Store &Connection::store()
{
    if (!store_) raising::failure(u"The connection is closed"_s);
    return *store_;
}

void Connection::setListener(Store::Listener listener)
{
    listener_ = std::move(listener);
    if (store_) store_->listen(listener_);
}

void Connection::execute(const QString &sql, std::vector<StoreValue> values)
{
    store().execute(sql, std::move(values));
}

void Connection::executeKeyed(const QString &sql, std::vector<StoreValue> values, const QUuid &key)
{
    store().executeKeyed(sql, std::move(values), key);
}

QSet<QUuid> Connection::keys() { return store().keys(); }

void Connection::dropKeys(const QSet<QUuid> &keys) { store().dropKeys(keys); }

Recordset Connection::query(const QString &sql, const std::vector<StoreValue> &values)
{
    return store().query(sql, values);
}

void Connection::each(const QString &sql, const std::vector<StoreValue> &values,
                      const std::function<void(const Recordset &)> &row)
{
    store().rows(sql, values, [&row](const Row &current) {
        Cells cells;
        current.addTo(cells);
        row(Recordset(current.columnNames(), std::move(cells)));
    });
}

void Connection::rows(const QString &sql, const std::vector<StoreValue> &values, const Store::EachRow &row)
{
    store().rows(sql, values, row);
}

bool Connection::rowsWanted(const QString &sql, const std::vector<StoreValue> &values, const QString &columns,
                            const Wanted &wanted, const Store::EachRow &row)
{
    return store().rowsWanted(sql, values, columns, wanted, row);
}

void Connection::releaseMemory()
{
    if (store_) store_->releaseMemory();
}

Connection::Mark Connection::mark()
{
    Mark mark = store().mark();
    mark.opening = openings_;
    return mark;
}

void Connection::tryWriting() { store().tryWriting(); }

void Connection::waitingOnce(const std::function<void()> &work) { store().waitingOnce(work); }

int Connection::written(const QString &sql) const { return store_ ? store_->written(sql) : 0; }

void Connection::gathering(const std::function<void()> &work) { store().gathering(work); }

void Connection::gatheringInOrder(const std::function<void()> &work) { store().gatheringInOrder(work); }

void Connection::allOrNothing(const std::function<void()> &work) { store().allOrNothing(work); }

int Connection::undone() const { return store_ ? store_->undone() : 0; }

int Connection::lostWrites() const { return store_ ? store_->lostWrites() : 0; }

Fate Connection::fateOf(int lost) const { return store_ ? store_->fateOf(lost) : Fate::None; }

qint64 Connection::lastId() { return store().lastId(); }

qint64 Connection::highestId(const QString &table) { return store().highestId(table); }

void Connection::giveAgainBehind(const QString &table, qint64 last) { store().giveAgainBehind(table, last); }

QStringList Connection::columns(const QString &table) { return store().columns(table); }

bool Connection::anyForeign(const QStringList &tables) { return store().anyForeign(tables); }

QStringList Connection::indexes(const QString &table) { return store().indexes(table); }

void Connection::indexPairs(const QString &name, const QString &columns)
{
    execute(u"CREATE INDEX IF NOT EXISTS %1 ON %2"_s.arg(name, WantedPairs(columns).indexed()), {});
}

int Connection::schemaNumber() { return store().schemaNumber(); }

void Connection::setSchemaNumber(int steps) { store().setSchemaNumber(steps); }

void Connection::copyTo(const FileCopy &copy) { store().copyTo(copy); }

const Dialect &Connection::dialect() { return store().dialect(); }
