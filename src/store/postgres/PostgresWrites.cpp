// Writing: one statement at a time, gathered in portions, or all as one. Each of these carries a key, which the same
// transaction writes: where the answer is lost, the key tells whether the write arrived.
#include "store/postgres/PostgresKeys.h"
#include "store/postgres/PostgresStore.h"

#include <algorithm>
#include <QScopedValueRollback>
#include <utility>

namespace
{
constexpr std::size_t longestPortion = 300;               // writes in one transaction
constexpr qsizetype heaviestPortion = qsizetype{4} << 20; // bytes

qsizetype weightOf(const std::vector<StoreValue> &values)
{
    qsizetype weight = 0;
    for (const StoreValue &value : values) {
        if (const auto *bytes = std::get_if<QByteArray>(&value)) weight += bytes->size();
        if (const auto *text = std::get_if<QString>(&value)) weight += text->size();
    }
    return weight;
}

bool isLock(const Failure &failure) { return failure.kind() == Failure::Kind::DatabaseLocked; }
} // namespace

bool PostgresStore::isFull() const { return portion_.size() >= longestPortion || weight_ >= heaviestPortion; }

void PostgresStore::gather(Write write)
{
    weight_ += weightOf(write.command.values);
    portion_.push_back(std::move(write));
}

void PostgresStore::sendOrGather(Write write)
{
    if (gathering_)
        gather(std::move(write));
    else if (transaction_)
        count(write, within(write.command, session_.patience().command).get());
    else
        sendAlone(write);
}

void PostgresStore::execute(const QString &sql, Values values)
{
    sendOrGather({sql, said(sql, std::move(values))});
    if (isFull()) flush();
}

// What belongs to it is written behind it, and goes in the same portion, which is why a full one ends before
// it.
void PostgresStore::executeKeyed(const QString &sql, Values values, const QUuid &key)
{
    if (isFull()) flush();
    PostgresCommand command = said(sql, std::move(values));
    command.values.emplace_back(key.toString(QUuid::WithoutBraces));
    command.sql = postgres::keepForLong(command.sql, command.values.size());
    sendOrGather({sql, std::move(command)});
}

QSet<QUuid> PostgresStore::keys()
{
    QSet<QUuid> keys;
    for (Recordset rs = ownQuestion(postgres::findLongKept, {}); !rs.Eof(); rs.MoveNext())
        keys << QUuid::fromString(rs.Fields("key").text());
    return keys;
}

// Twice does no harm.
void PostgresStore::dropKeys(const QSet<QUuid> &keys)
{
    QStringList all;
    for (const QUuid &key : keys)
        all << key.toString(QUuid::WithoutBraces);
    answer({postgres::dropKeys, {all.join(u',')}}, session_.patience().list);
}

void PostgresStore::count(const Write &write, const PGresult *answer)
{
    ++written_[write.sql];
    // The library forgot the const. Without an answer nobody knows how many, but that it was done.
    rowsWritten_ += answer == nullptr ? 1 : QByteArray(libpq::cmdTuples(const_cast<PGresult *>(answer))).toInt();
}

void PostgresStore::refuse(const PGresult *refusal, const QString &source)
{
    try {
        raiseRefusal(refusal, source);
    } catch (const Failure &failure) {
        if (waitsOnce_ && isLock(failure)) wait(false);
        throw;
    }
}

// The first answer is the key's. There is none at all where they were lost and the key says that all was done.
void PostgresStore::sendAlone(const Write &write)
{
    const PostgresAnswers answers = sendKeyed(postgres::keepKey, {write.command}, session_.patience().forCommand());
    if (answers.refused) refuse(answers.refusal.get(), write.sql);
    count(write, answers.results.empty() ? nullptr : answers.results.back().get());
    if (waitsOnce_) wait(true);
}

Fate PostgresStore::fateOf(int lost) const
{
    return lost < 1 || lost > lostWrites() ? Fate::None : fates_[static_cast<std::size_t>(lost) - 1];
}

// Raises Failure where nothing was done, and where nobody knows. While an earlier write is in doubt nothing is sent.
PostgresAnswers PostgresStore::sendKeyed(const QString &keep, const Commands &commands, const Deadline &deadline)
{
    if (session_.lost()) raiseLost({});
    const QString key = postgres::newKey();
    Commands keyed{{keep, {key}}};
    keyed.insert(keyed.end(), commands.begin(), commands.end());
    try {
        return session_.attempt(keyed, deadline);
    } catch (const Failure &) {
        if (!settle(key, deadline)) throw;
        return {};
    }
}

// Whether it arrived, as far as that can be found out at once.
bool PostgresStore::settle(const QString &key, const Deadline &deadline)
{
    doubt_ = key;
    taken_ = postgres::newKey();
    fates_.push_back(Fate::Unknown);
    if (!session_.reopen(deadline)) return false;
    skipFailure([&] { settleDoubt(lockPatience(session_.patience()), deadline); });
    return fates_.back() == Fate::Arrived;
}

// A server on which that write still runs counts as lost: it is asked again on the next way back.
void PostgresStore::settleDoubt(std::chrono::milliseconds lockPatience, const Deadline &deadline)
{
    if (doubt_.isEmpty()) return;
    const Commands commands{{postgres::waitForLocks, {QString::number(lockPatience.count())}},
                            {postgres::takeKey, {doubt_, taken_}},
                            {postgres::findKey, {taken_}}};
    try {
        const PostgresAnswers answers = session_.attempt(commands, deadline);
        if (answers.refused) raiseRefusal(answers.refusal.get(), postgres::takeKey);
        const bool wasFree = libpq::ntuples(answers.results.back().get()) > 0;
        fates_.back() = wasFree ? Fate::NotArrived : Fate::Arrived;
        doubt_.clear();
    } catch (const Failure &) {
        session_.lose();
        raiseLost({});
    }
}

void PostgresStore::gathering(const Work &work)
{
    const PostgresSession::Hold hold(session_);
    gathering_ = true;
    std::exception_ptr raised;
    try {
        work();
    } catch (...) {
        raised = std::current_exception();
    }
    endGathering(raised);
}

void PostgresStore::gatheringInOrder(const Work &work)
{
    const QScopedValueRollback order(inOrder_, true);
    gathering(work);
}

// What stands behind one that is refused is written all the same, unless their order counts; the first that failed is
// told, and what was gathered stands before what ended the work.
void PostgresStore::endGathering(std::exception_ptr raised)
{
    gathering_ = false;
    while (!portion_.empty()) {
        try {
            flush();
        } catch (const Failure &) {
            if (!raised || inOrder_) raised = std::current_exception();
        }
    }
    if (raised) std::rethrow_exception(raised);
}

void PostgresStore::flush()
{
    if (portion_.empty()) return;
    weight_ = 0;
    sendPortion(std::exchange(portion_, {}));
}

// Nothing remains of a portion of which one is refused. What stands before that one is written then; what stands
// behind it waits for the next portion.
void PostgresStore::sendPortion(std::vector<Write> writes)
{
    std::size_t good = writes.size();
    PostgresResult refusal;
    for (;;) {
        PostgresAnswers answers = good > 0 ? tryPortion({writes.data(), good}) : PostgresAnswers();
        if (!answers.refused) break;
        if (*answers.refused > good) return sendOneByOne(std::move(writes));
        if (*answers.refused == 0) requireLock(answers.refusal.get(), writes.front().sql);
        good = *answers.refused > 0 ? *answers.refused - 1 : 0; // behind the key, or the mark to go back to
        refusal = std::move(answers.refusal);
    }
    if (!refusal) return;
    const QString source = writes[good].sql;
    keepBehind(good, std::move(writes));
    refuse(refusal.get(), source);
}

void PostgresStore::keepBehind(std::size_t refused, std::vector<Write> writes)
{
    if (inOrder_) return;
    portion_.assign(std::make_move_iterator(writes.begin() + static_cast<std::ptrdiff_t>(refused) + 1),
                    std::make_move_iterator(writes.end()));
}

// Whoever may not keep a key may write nothing at all; who waited for its turn in vain goes on behind the first.
void PostgresStore::requireLock(const PGresult *refusal, const QString &source)
{
    if (kindOfState(stateOf(refusal)) != Failure::Kind::DatabaseLocked) refuse(refusal, source);
}

// One that did not arrive is sent once more: its key is taken, so that the first can't come after all.
PostgresAnswers PostgresStore::tryPortion(std::span<const Write> writes)
{
    const Deadline deadline = session_.patience().forList();
    if (transaction_) return tryPortionWithin(writes, deadline);
    Commands commands;
    for (const Write &write : writes)
        commands.push_back(write.command);
    PostgresAnswers answers;
    try {
        answers = sendKeyed(postgres::keepKeyAlone, commands, deadline);
    } catch (const Failure &) {
        if (session_.lost() || fates_.back() != Fate::NotArrived) throw;
        fates_.pop_back(); // of one write that is told of there is one fate: that of its last sending
        answers = sendKeyed(postgres::keepKeyAlone, commands, deadline);
    }
    if (answers.refused) return answers;
    for (std::size_t i = 0; i < writes.size(); ++i)
        count(writes[i], answers.results.empty() ? nullptr : answers.results[i + 1].get());
    if (waitsOnce_) wait(true);
    return answers;
}

// Where the portion as a whole was refused, and none of it.
void PostgresStore::sendOneByOne(std::vector<Write> writes)
{
    for (std::size_t i = 0; i < writes.size(); ++i) {
        try {
            sendAlone(writes[i]);
        } catch (const Failure &failure) {
            if (failure.kind() != Failure::Kind::ServerLost) keepBehind(i, std::move(writes));
            throw;
        }
    }
}
