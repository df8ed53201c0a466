// One open connection to the server. All commands go through a pipeline: what is prepared for the first time is run
// in the same trip, and as many commands as one likes cost one trip. Each trip has a deadline; once it is over, or the
// server has gone, the connection is dropped and all that follows fails at once. No event of the program is handled
// meanwhile.
#pragma once

#include "store/postgres/PostgresFailure.h"
#include "store/postgres/PostgresPatience.h"
#include "store/Values.h"

#include <deque>
#include <functional>
#include <optional>
#include <QHash>
#include <QString>
#include <span>

// A command with its values, in the server's own words: $1 and so on.
struct PostgresCommand {
    QString sql;
    std::vector<StoreValue> values;
};

// What a trip brought.
struct PostgresAnswers {
    std::vector<PostgresResult> results;    // one a command, up to the one that was refused
    std::optional<std::size_t> refused;     // which; as many as there were where all as a whole was refused
    PostgresResult refusal;
};

// What another connection announced.
struct PostgresNotice {
    int from = 0; // the server's process that serves the connection
    QByteArray payload;
};

class PostgresLink
{
public:
    explicit PostgresLink(PostgresConnection connection);

    bool alive() const { return connection_ != nullptr; }
    int socket() const { return libpq::socket(connection_.get()); }
    int process() const { return libpq::backendPID(connection_.get()); } // of the server

    // Runs these in one trip and as one transaction, of which nothing remains where one is refused; within a
    // transaction that is open already they are a part of that one. Raises Failure (ServerLost) where no answer
    // came: whether they were done isn't known then.
    PostgresAnswers run(std::span<const PostgresCommand> commands, const Deadline &deadline);

    // The same for one command. Raises Failure with the server's reason too.
    PostgresResult run(const PostgresCommand &command, const Deadline &deadline);

    // Goes ahead of the next trip, in a transaction of its own, and costs none. Nobody hears whether it is refused.
    void ahead(const QString &sql) { ahead_.push_back(sql); }

    // Hands on each row as it comes, in a result of one row, and keeps none. Within a transaction at most one at a
    // time. The patience is that for a list, for each portion of what comes.
    void stream(const PostgresCommand &command, const PostgresPatience &patience,
                const std::function<void(const PGresult *)> &row);

    // Takes what has come meanwhile. False where the server has gone.
    bool hear();
    // What was announced since the last call.
    std::vector<PostgresNotice> heard() { return std::exchange(heard_, {}); }

    // Has the text prepared anew at its next use: what it reads has got other columns meanwhile.
    void forget(const QString &sql) { prepared_.remove(sql); }

    void drop();
    PGTransactionStatusType transaction() const { return libpq::transactionStatus(connection_.get()); }

private:
    // What an answer belongs to, in their order.
    struct Awaited {
        enum class What { Preparation, Command, Ahead, End };
        What what;
        std::size_t command = 0; // its place among those that were asked for
        QString sql{};           // what was prepared, and under which name
        QByteArray name{};
    };
    struct Parameters;

    void sendAhead();
    void send(const PostgresCommand &command, std::size_t place);
    void sent(int worked);
    void end();
    void leaveSingleRows(const Deadline &deadline);
    void collect(PostgresAnswers &answers, const Deadline &deadline);
    void settle(PostgresAnswers &answers, const Awaited &awaited, PostgresResult result);
    PostgresResult next(const Deadline &deadline);
    void await(const Deadline &deadline);
    void collectNotices();
    [[noreturn]] void lose();

    PostgresConnection connection_;
    QHash<QString, QByteArray> prepared_; // the server's names for what it has prepared
    QHash<QString, QByteArray> preparing_; // in this trip
    int names_ = 0;
    std::vector<QString> ahead_;
    std::deque<Awaited> awaited_;
    std::vector<PostgresNotice> heard_;
};
