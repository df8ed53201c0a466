// What a refusal of the server means for the person before the screen. Told by the codes of the protocol, never
// by words, which come in the server's language.
#pragma once

#include "platform/Failure.h"
#include "store/postgres/Libpq.h"

#include <memory>
#include <string_view>

struct PostgresResultFreed {
    void operator()(PGresult *result) const { libpq::clear(result); }
};
using PostgresResult = std::unique_ptr<PGresult, PostgresResultFreed>;

struct PostgresConnectionEnded {
    void operator()(PGconn *connection) const { libpq::finish(connection); }
};
using PostgresConnection = std::unique_ptr<PGconn, PostgresConnectionEnded>;

// Of a command's code of five characters; empty stands for a connection that broke.
Failure::Kind kindOfState(std::string_view state);

// Whether the result is a refusal, and which.
bool isRefusal(const PGresult *result);
std::string_view stateOf(const PGresult *result);

// The refusal of a command as Failure; the source is the command.
[[noreturn]] void raiseRefusal(const PGresult *refusal, const QString &source);

// The connection as lost.
[[noreturn]] void raiseLost(const QString &reason);
