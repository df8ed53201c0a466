#include "store/postgres/PostgresLink.h"

#include "store/postgres/ServerPulse.h"

#include <QLocale>
#include <utility>

namespace
{
constexpr qsizetype mostPrepared = 400; // a text beyond is a chance one, and prepared for its one use
constexpr int textFormat = 0;
constexpr int binaryFormat = 1;

bool isWhole(const PGresult *result)
{
    const ExecStatusType status = libpq::resultStatus(result);
    return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
}
} // namespace

// Values as the library takes them: texts but for bytes. The server's texts hold no U+0000, and what stands behind
// one would be cut off without a word.
struct PostgresLink::Parameters {
    explicit Parameters(const std::vector<StoreValue> &given)
    {
        kept.reserve(given.size());
        for (const StoreValue &value : given)
            add(value);
    }
    int count() const { return static_cast<int>(values.size()); }

    void add(const StoreValue &value)
    {
        int format = textFormat;
        if (const auto *integer = std::get_if<qint64>(&value)) {
            kept.push_back(QByteArray::number(*integer));
        } else if (const auto *real = std::get_if<double>(&value)) {
            kept.push_back(QByteArray::number(*real, 'g', QLocale::FloatingPointShortest));
        } else if (const auto *text = std::get_if<QString>(&value)) {
            kept.push_back(QString(*text).remove(QChar::Null).toUtf8());
        } else if (const auto *bytes = std::get_if<QByteArray>(&value)) {
            kept.push_back(*bytes);
            format = binaryFormat;
        } else {
            kept.emplace_back();
        }
        const bool isNull = std::holds_alternative<std::monostate>(value);
        values.push_back(isNull ? nullptr : kept.back().constData());
        lengths.push_back(static_cast<int>(kept.back().size()));
        formats.push_back(format);
    }

    std::vector<QByteArray> kept;
    std::vector<const char *> values;
    std::vector<int> lengths;
    std::vector<int> formats;
};

PostgresLink::PostgresLink(PostgresConnection connection) : connection_(std::move(connection))
{
    libpq::setnonblocking(connection_.get(), 1);
    libpq::enterPipelineMode(connection_.get());
}

void PostgresLink::drop()
{
    connection_.reset();
}

void PostgresLink::lose()
{
    const QString reason = QString::fromUtf8(libpq::errorMessage(connection_.get())).trimmed();
    drop();
    raiseLost(reason);
}

void PostgresLink::sent(int worked)
{
    if (worked == 0) lose();
}

void PostgresLink::sendAhead()
{
    for (const QString &sql : std::exchange(ahead_, {})) {
        sent(libpq::sendQueryParams(connection_.get(), sql.toUtf8().constData(), 0, nullptr, nullptr, nullptr, nullptr,
                                    textFormat));
        awaited_.push_back({.what = Awaited::What::Ahead});
        end();
    }
}

void PostgresLink::send(const PostgresCommand &command, std::size_t place)
{
    const Parameters parameters(command.values);
    QByteArray name = preparing_.value(command.sql, prepared_.value(command.sql));
    if (name.isEmpty()) {
        if (prepared_.size() + preparing_.size() < mostPrepared)
            name = QByteArrayLiteral("m") + QByteArray::number(++names_);
        sent(libpq::sendPrepare(connection_.get(), name.constData(), command.sql.toUtf8().constData(), 0, nullptr));
        awaited_.push_back({Awaited::What::Preparation, place, command.sql, name});
        if (!name.isEmpty()) preparing_.insert(command.sql, name);
    }
    sent(libpq::sendQueryPrepared(connection_.get(), name.constData(), parameters.count(), parameters.values.data(),
                                  parameters.lengths.data(), parameters.formats.data(), textFormat));
    awaited_.push_back({.what = Awaited::What::Command, .command = place});
}

void PostgresLink::end()
{
    sent(libpq::pipelineSync(connection_.get()));
    awaited_.push_back({.what = Awaited::What::End});
}

PostgresAnswers PostgresLink::run(std::span<const PostgresCommand> commands, const Deadline &deadline)
{
    if (!alive()) raiseLost({});
    preparing_.clear();
    sendAhead();
    for (std::size_t i = 0; i < commands.size(); ++i)
        send(commands[i], i);
    end();
    PostgresAnswers answers;
    collect(answers, deadline);
    if (!answers.refused && answers.refusal) answers.refused = commands.size();
    return answers;
}

PostgresResult PostgresLink::run(const PostgresCommand &command, const Deadline &deadline)
{
    PostgresAnswers answers = run(std::span(&command, 1), deadline);
    if (answers.refused) raiseRefusal(answers.refusal.get(), command.sql);
    return std::move(answers.results.front());
}

// Everything that was sent is answered for, so that the next trip begins with nothing left over.
void PostgresLink::collect(PostgresAnswers &answers, const Deadline &deadline)
{
    while (!awaited_.empty()) {
        PostgresResult result = next(deadline);
        if (!result) {
            if (awaited_.front().what != Awaited::What::End) awaited_.pop_front();
        } else if (libpq::resultStatus(result.get()) == PGRES_PIPELINE_SYNC) {
            awaited_.pop_front();
        } else {
            settle(answers, awaited_.front(), std::move(result));
        }
    }
    collectNotices();
}

void PostgresLink::settle(PostgresAnswers &answers, const Awaited &awaited, PostgresResult result)
{
    using What = Awaited::What;
    if (awaited.what == What::Ahead) return;
    if (isRefusal(result.get())) {
        if (awaited.what != What::End) answers.refused = awaited.command; // what stands behind it is not run
        answers.refusal = std::move(result);
    } else if (isWhole(result.get()) && awaited.what == What::Preparation) {
        if (!awaited.name.isEmpty()) prepared_.insert(awaited.sql, awaited.name);
    } else if (isWhole(result.get()) && awaited.what == What::Command) {
        answers.results.push_back(std::move(result));
    }
}

PostgresResult PostgresLink::next(const Deadline &deadline)
{
    await(deadline);
    PostgresResult result(libpq::getResult(connection_.get()));
    const bool ended = result && isRefusal(result.get()) && kindOfState(stateOf(result.get())) == Failure::Kind::ServerLost;
    if (ended || libpq::status(connection_.get()) != CONNECTION_OK) lose();
    return result;
}

void PostgresLink::await(const Deadline &deadline)
{
    ServerPulse pulse(socket());
    for (;;) {
        const int unsent = libpq::flush(connection_.get());
        if (unsent < 0) lose();
        if (libpq::isBusy(connection_.get()) == 0) return;
        if (!pulse.ready(unsent > 0, deadline)) {
            drop();
            raiseLost({});
        }
        if (libpq::consumeInput(connection_.get()) == 0) lose();
        deadline.heard();
    }
}

void PostgresLink::stream(const PostgresCommand &command, const PostgresPatience &patience,
                          const std::function<void(const PGresult *)> &row)
{
    if (!alive()) raiseLost({});
    const Parameters parameters(command.values);
    libpq::exitPipelineMode(connection_.get());
    sent(libpq::sendQueryParams(connection_.get(), command.sql.toUtf8().constData(), parameters.count(), nullptr,
                                parameters.values.data(), parameters.lengths.data(), parameters.formats.data(),
                                textFormat));
    libpq::setSingleRowMode(connection_.get());
    PostgresResult refusal;
    try {
        while (PostgresResult result = next(patience.forList())) {
            if (isRefusal(result.get()))
                refusal = std::move(result);
            else if (libpq::resultStatus(result.get()) == PGRES_SINGLE_TUPLE)
                row(result.get());
        }
    } catch (...) {
        drop(); // what is still on its way would answer the next command
        throw;
    }
    libpq::enterPipelineMode(connection_.get());
    leaveSingleRows(patience.forList());
    if (refusal) raiseRefusal(refusal.get(), command.sql);
}

// The library hands out the next answer row by row as well, unless something without rows comes before it.
void PostgresLink::leaveSingleRows(const Deadline &deadline)
{
    PostgresAnswers none;
    end();
    collect(none, deadline);
}

bool PostgresLink::hear()
{
    if (!alive()) return false;
    if (libpq::consumeInput(connection_.get()) == 0) return false;
    collectNotices();
    return true;
}

void PostgresLink::collectNotices()
{
    while (PGnotify *notice = libpq::notifies(connection_.get())) {
        heard_.push_back({notice->be_pid, QByteArray(notice->extra)});
        libpq::freemem(notice);
    }
}
