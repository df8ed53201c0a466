// The data as a file: read over a connection of its own from one snapshot, while this one and others go on.
#include "store/postgres/PostgresRow.h"
#include "store/postgres/PostgresStore.h"
#include "store/NewDatabase.h"
#include "store/sqlite/SqliteStore.h"
#include "store/Raising.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
class Copying
{
public:
    Copying(PostgresConnection connection, const PostgresPatience &patience, const FileCopy &copy, SqliteStore &file)
        : link_(std::move(connection)),
          patience_(patience),
          copy_(copy),
          file_(file)
    {
    }

    void run()
    {
        say(u"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_s);
        say(u"SET LOCAL statement_timeout = 0"_s); // one table may take longer than any command
        QStringList counts;
        for (const FileCopy::Table &table : copy_.tables)
            counts << u"(SELECT count(*) FROM %1)"_s.arg(table.name);
        if (!counts.isEmpty()) rows_ = number({u"SELECT "_s + counts.join(u" + "_s), {}});
        for (const FileCopy::Table &table : copy_.tables) {
            copyRows(table);
            if (table.counted) copyCounter(table.name);
        }
        say(u"COMMIT"_s);
    }

private:
    PostgresResult ask(const PostgresCommand &command) { return link_.run(command, patience_.forList()); }
    void say(const QString &sql) { ask({sql, {}}); }
    qint64 number(const PostgresCommand &command)
    {
        const PostgresResult answer = ask(command);
        return PostgresRow(answer.get()).number(0);
    }

    void copyRows(const FileCopy::Table &table)
    {
        const QString columns = table.columns.join(u", "_s);
        const QString insert = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(
            table.name, columns, QStringList(table.columns.size(), u"?"_s).join(u", "_s));
        const QString all = u"SELECT %1 FROM %2 ORDER BY 1"_s.arg(columns, table.name);
        link_.stream({all, {}}, patience_, [&](const PGresult *one) {
            Cells cells;
            PostgresRow(one).addTo(cells);
            Store::Values values;
            for (std::size_t i = 0; i < cells.size(); ++i)
                values.push_back(cells.at(i));
            file_.execute(insert, std::move(values));
            advance();
        });
    }

    // The next row of the file gets no number that was ever given.
    void copyCounter(const QString &table)
    {
        const qint64 highest = number({u"SELECT morvex_maior_id($1)"_s, {table}});
        file_.execute(u"INSERT INTO sqlite_sequence (name, seq) SELECT ?, 0 WHERE NOT EXISTS "
                      "(SELECT name FROM sqlite_sequence WHERE name = ?)"_s,
                      {table, table});
        file_.giveAgainBehind(table, highest);
    }

    void advance()
    {
        constexpr qint64 whole = 100;
        const auto now = static_cast<int>(++copied_ * whole / std::max<qint64>(rows_, 1));
        if (std::exchange(percent_, now) != now && copy_.progress) copy_.progress(now);
    }

    PostgresLink link_;
    const PostgresPatience &patience_;
    const FileCopy &copy_;
    SqliteStore &file_;
    qint64 rows_ = 0;
    qint64 copied_ = 0;
    int percent_ = 0;
};
} // namespace

void PostgresStore::copyTo(const FileCopy &copy)
{
    if (QFile::exists(copy.file)) raising::failure(u"The file exists already: %1"_s.arg(copy.file), copy.file);
    if (session_.lost()) raiseLost({});
    flush();
    const PostgresPatience &patience = session_.patience();
    try {
        auto connection = openNow(PostgresAddress(address_), {}, patience.forOpening());
        createDatabase(copy.file, copy.create, copy.schemaNumber);
        const auto file = SqliteStore::open(copy.file);
        file->allOrNothing([&] { Copying(std::move(connection), patience, copy, *file).run(); });
        file->requireSound();
    } catch (const Failure &failure) {
        QFile::remove(copy.file);
        if (failure.kind() == Failure::Kind::ServerLost) session_.lose(); // rather than to wait for it once more
        throw;
    } catch (...) {
        QFile::remove(copy.file);
        throw;
    }
}
