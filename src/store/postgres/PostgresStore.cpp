// Opening and reading.
#include "store/postgres/PostgresStore.h"

#include "store/postgres/PostgresDialect.h"
#include "store/postgres/PostgresKeys.h"
#include "store/postgres/PostgresRow.h"
#include "store/Raising.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
// How long the way back waits for a lock. Nobody has asked for it: the window must not stand still.
constexpr std::chrono::milliseconds hardlyAtAll(10);

QString quoted(const QString &name) { return u'"' + name.toLower().replace(u'"', u"\"\""_s) + u'"'; }

QString textOf(const QString &expression) { return u"COALESCE((%1)::text, '')"_s.arg(expression); }

// A list or a search may take longer than a look at one row.
std::chrono::milliseconds patienceFor(const QString &sql, const PostgresPatience &patience)
{
    const auto has = [&](QLatin1StringView words) { return sql.contains(words, Qt::CaseInsensitive); };
    return has("ORDER BY"_L1) || has(" LIKE "_L1) || !has("WHERE"_L1) ? patience.list : patience.command;
}

Recordset recordset(const PGresult *answer)
{
    PostgresRow row(answer);
    Cells cells;
    for (int i = 0; i < libpq::ntuples(answer); ++i) {
        row.moveTo(i);
        row.addTo(cells);
    }
    return {row.columnNames(), std::move(cells)};
}
} // namespace

PostgresStore::PostgresStore(QString address, const QStringList &settings, const PostgresPatience &patience,
                             const Deadline &opening)
    : address_(std::move(address)),
      session_(address_, settings, patience, opening)
{
    session_.cameBack = [this] { settleDoubt(hardlyAtAll, session_.patience().forCommand()); };
}

// A lock is waited for a little shorter than an answer: who holds it is no reason to think the server lost.
std::chrono::milliseconds PostgresStore::lockPatience(const PostgresPatience &patience) { return patience.command * 3 / 4; }

std::unique_ptr<PostgresStore> PostgresStore::make(const QString &address, QStringList settings,
                                                   const PostgresPatience &patience, const Deadline &opening)
{
    settings << u"lock_timeout=%1"_s.arg(lockPatience(patience).count());
    return std::unique_ptr<PostgresStore>(new PostgresStore(address, settings, patience, opening));
}

std::unique_ptr<PostgresStore> PostgresStore::open(const QString &address, const PostgresPatience &patience)
{
    auto store = make(address, {}, patience, Deadline(patience.opening));
    store->session_.ahead(postgres::forgetOldKeys);
    return store;
}

std::unique_ptr<PostgresStore> PostgresStore::openReadOnly(const QString &address, const PostgresPatience &patience)
{
    if (PostgresSession::isLost(address)) raiseLost({});
    return make(address, {u"default_transaction_read_only=on"_s}, patience, patience.forOpening());
}

PostgresCommand PostgresStore::said(const QString &sql, Values values)
{
    Said &words = said_[sql];
    if (words.sql.isEmpty()) words = {postgres::said(sql), static_cast<std::size_t>(postgres::parameters(sql))};
    if (words.parameters != values.size())
        raising::failure(u"%1 values for %2 parameters"_s.arg(values.size()).arg(words.parameters));
    return {words.sql, std::move(values)};
}

// What was gathered is in the data before anybody reads of it.
PostgresResult PostgresStore::answer(const PostgresCommand &command, std::chrono::milliseconds patience)
{
    flush();
    return transaction_ ? within(command, patience) : session_.ask(command, patience);
}

Recordset PostgresStore::query(const QString &sql, const Values &values)
{
    return recordset(answer(said(sql, values), patienceFor(sql, session_.patience())).get());
}

void PostgresStore::rows(const QString &sql, const Values &values, const EachRow &row)
{
    const PostgresResult all = answer(said(sql, values), patienceFor(sql, session_.patience()));
    PostgresRow current(all.get());
    for (int i = 0; i < libpq::ntuples(all.get()); ++i) {
        current.moveTo(i);
        row(current);
    }
}

// All of them are sent anyhow, which tells whether there are any. Columns have lost their table's name by then.
bool PostgresStore::rowsWanted(const QString &sql, const Values &values, const QString &columns,
                               const Wanted &wanted, const EachRow &row)
{
    const auto nameOf = [&](int place) {
        return columns.section(u',', place, place).section(u'.', -1).trimmed().toUtf8();
    };
    const QByteArray first = nameOf(0);
    const QByteArray second = nameOf(1);
    bool any = false;
    rows(sql, values, [&](const Row &one) {
        any = true;
        if (wanted(one.utf8(one.column(first)), one.utf8(one.column(second)))) row(one);
    });
    return any;
}

Recordset PostgresStore::ownQuestion(const QString &sql, Values values)
{
    return recordset(answer({sql, std::move(values)}, session_.patience().command).get());
}

StoreMark PostgresStore::mark() { return {.elsewhere = session_.noticed(), .here = rowsWritten_}; }

qint64 PostgresStore::lastId()
{
    const Recordset rs = ownQuestion(u"SELECT COALESCE(morvex_ultimo_id(), 0) AS id"_s, {});
    return rs.Fields("id").number();
}

qint64 PostgresStore::highestId(const QString &table)
{
    const Recordset rs = ownQuestion(u"SELECT morvex_maior_id($1) AS id"_s, {table});
    return rs.Fields("id").number();
}

void PostgresStore::giveAgainBehind(const QString &table, qint64 last)
{
    execute(u"SELECT morvex_voltar_a(?, ?)"_s, {table, last});
}

QStringList PostgresStore::names(const QString &sql, const QString &table)
{
    QStringList names;
    for (Recordset rs = ownQuestion(sql, {table.toLower()}); !rs.Eof(); rs.MoveNext())
        names << rs.Fields("name").text();
    return names;
}

QStringList PostgresStore::columns(const QString &table)
{
    return names(u"SELECT attname AS name FROM pg_catalog.pg_attribute WHERE attrelid = "
                 "pg_catalog.to_regclass(quote_ident($1)) AND attnum > 0 AND NOT attisdropped ORDER BY attnum"_s,
                 table);
}

QStringList PostgresStore::indexes(const QString &table)
{
    return names(u"SELECT relname AS name FROM pg_catalog.pg_index JOIN pg_catalog.pg_class ON oid = indexrelid WHERE "
                 "indrelid = pg_catalog.to_regclass(quote_ident($1))"_s,
                 table);
}

int PostgresStore::schemaNumber()
{
    const Recordset rs = ownQuestion(u"SELECT max(numero) AS number FROM morvex_esquema"_s, {});
    return rs.Fields("number").isNull() ? 0 : rs.Fields("number").number();
}

void PostgresStore::setSchemaNumber(int)
{
    raising::failure(u"The schema of a server is its administrator's"_s, place());
}

const Dialect &PostgresStore::dialect() const
{
    static const Dialect own{quoted, textOf, u" COLLATE morvex"_s, u"id"_s};
    return own;
}
