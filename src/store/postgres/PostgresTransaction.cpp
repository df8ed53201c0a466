// All or nothing, and the wait for the locks of others.
#include "store/postgres/PostgresKeys.h"
#include "store/postgres/PostgresStore.h"
#include "store/Raising.h"

#include <QScopedValueRollback>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

// A statement that fails leaves the rest of the transaction as it is.
PostgresResult PostgresStore::within(const PostgresCommand &command, std::chrono::milliseconds patience)
{
    if (session_.lost() || session_.generation() != *transaction_) raiseLost({});
    const Commands commands{{postgres::savePoint, {}}, command, {postgres::release, {}}};
    PostgresAnswers answers;
    try {
        answers = session_.attempt(commands, session_.patience().within(patience));
    } catch (const Failure &) {
        session_.lose();
        throw;
    }
    if (answers.refused) {
        session_.ahead(postgres::backToSavePoint);
        refuse(answers.refusal.get(), command.sql);
    }
    return std::move(answers.results[1]);
}

PostgresAnswers PostgresStore::tryPortionWithin(std::span<const Write> writes, const Deadline &deadline)
{
    if (session_.lost() || session_.generation() != *transaction_) raiseLost({});
    Commands commands{{postgres::savePoint, {}}};
    for (const Write &write : writes)
        commands.push_back(write.command);
    commands.push_back({postgres::release, {}});
    try {
        PostgresAnswers answers = session_.attempt(commands, deadline);
        if (answers.refused) session_.ahead(postgres::backToSavePoint);
        for (std::size_t i = 0; i < writes.size() && !answers.refused; ++i)
            count(writes[i], answers.results[i + 1].get());
        return answers;
    } catch (const Failure &) {
        session_.lose();
        throw;
    }
}

void PostgresStore::allOrNothing(const Work &work)
{
    flush();
    if (transaction_) raising::failure(u"All or nothing was begun already"_s);
    const QScopedValueRollback alone(gathering_, false);
    const PostgresSession::Hold hold(session_);
    begin();
    const auto written = written_;
    try {
        work();
        commit();
    } catch (...) {
        written_ = written;
        rollBack();
        throw;
    }
}

// Nobody else writes from here on; who tries waits.
void PostgresStore::begin()
{
    if (session_.lost()) raiseLost({});
    Commands commands{{u"BEGIN"_s, {}}, {postgres::alone, {}}};
    if (const QString &tables = lockOfAll(); !tables.isEmpty()) commands.push_back({tables, {}});
    const PostgresAnswers answers = session_.attemptTwice(commands, session_.patience().forCommand()); // nothing was written yet
    transaction_ = session_.generation();
    if (!answers.refused) return;
    rollBack();
    refuse(answers.refusal.get(), u"BEGIN"_s);
}

void PostgresStore::commit()
{
    flush();
    if (session_.lost() || session_.generation() != *transaction_) raiseLost({});
    const PostgresAnswers answers =
        sendKeyed(postgres::keepKey, {{u"COMMIT"_s, {}}}, session_.patience().forCommand());
    if (answers.refused) refuse(answers.refusal.get(), u"COMMIT"_s);
    transaction_.reset();
    if (waitsOnce_) wait(true);
}

// At once: until then others wait.
void PostgresStore::rollBack()
{
    const bool there = !session_.lost() && session_.generation() == transaction_;
    transaction_.reset();
    if (!there) return;
    const PostgresCommand command{u"ROLLBACK"_s, {}};
    try {
        session_.attempt({&command, 1}, session_.patience().forCommand());
    } catch (const Failure &) {
        session_.lose();
    }
}

// The tables that this role writes, in an order that all desks share.
const QString &PostgresStore::lockOfAll()
{
    if (!lockOfAll_.isNull()) return lockOfAll_;
    const Recordset rs =
        ownQuestion(u"SELECT string_agg(quote_ident(relname), ', ' ORDER BY relname) AS tables FROM pg_catalog.pg_class "
                    "WHERE relnamespace = current_schema()::regnamespace AND relkind = 'r' "
                    "AND relname <> 'gravacoes' AND relname NOT LIKE 'morvex%' "
                    "AND has_table_privilege(oid, 'UPDATE')"_s,
                    {});
    const QString tables = rs.Fields("tables").textOrEmpty();
    lockOfAll_ = tables.isEmpty() ? u""_s : u"LOCK TABLE %1 IN SHARE ROW EXCLUSIVE MODE"_s.arg(tables);
    return lockOfAll_;
}

void PostgresStore::tryWriting()
{
    if (transaction_) return;
    const Commands commands{{u"BEGIN"_s, {}}, {postgres::keepKey, {postgres::newKey()}}, {u"ROLLBACK"_s, {}}};
    const PostgresAnswers answers = session_.attemptTwice(commands, session_.patience().forCommand());
    if (!answers.refused) return;
    transaction_ = session_.generation();
    rollBack();
    refuse(answers.refusal.get(), place());
}

void PostgresStore::waitingOnce(const Work &work)
{
    waitsOnce_ = true;
    const auto waitsAlways = qScopeGuard([this] {
        wait(true);
        waitsOnce_ = false;
    });
    work();
}

void PostgresStore::wait(bool atAll)
{
    if (std::exchange(waits_, atAll) == atAll) return;
    session_.ahead(u"SET lock_timeout = %1"_s.arg(atAll ? lockPatience(session_.patience()).count() : 1));
}
