#include "store/postgres/PostgresFailure.h"

#include <algorithm>
#include <array>
#include <QString>

using namespace Qt::StringLiterals;

namespace
{
struct Known {
    std::string_view state; // whole, or the class that it begins with
    Failure::Kind kind;
};

constexpr std::array known{
    Known{"08P01", Failure::Kind::Other},            // a command that it does not understand
    Known{"08", Failure::Kind::ServerLost},          // the connection
    Known{"57P01", Failure::Kind::ServerLost},       // ended by the administrator
    Known{"57P02", Failure::Kind::ServerLost},       // ended by a crash
    Known{"57P05", Failure::Kind::ServerLost},       // ended for being idle
    Known{"25P03", Failure::Kind::ServerLost},       // the same within a transaction
    Known{"57P03", Failure::Kind::ServerRefused},    // it is starting or ending
    Known{"53300", Failure::Kind::ServerRefused},    // too many connections
    Known{"28P01", Failure::Kind::ServerPassword},   // the password is wrong
    Known{"28", Failure::Kind::ServerForbidden},     // no such user, or not from here
    Known{"3D", Failure::Kind::ServerNoDatabase},    // no such database
    Known{"55P03", Failure::Kind::DatabaseLocked},   // waited for a lock in vain
    Known{"55006", Failure::Kind::DatabaseLocked},   // somebody uses it
    Known{"40", Failure::Kind::DatabaseLocked},      // two wrote the same
    Known{"53100", Failure::Kind::DiskFull},         // also with a quota
    Known{"25006", Failure::Kind::DatabaseReadOnly}, // a standby, or set so
    Known{"42501", Failure::Kind::DatabaseReadOnly}, // the role may not
    Known{"XX001", Failure::Kind::DatabaseDamaged},  // a table
    Known{"XX002", Failure::Kind::DatabaseDamaged},  // an index
};

QString firstLine(const char *text) { return QString::fromUtf8(text).section(u'\n', 0, 0).trimmed(); }
} // namespace

Failure::Kind kindOfState(std::string_view state)
{
    if (state.empty()) return Failure::Kind::ServerLost;
    const auto *found =
        std::find_if(known.begin(), known.end(), [&](const Known &one) { return state.starts_with(one.state); });
    return found == known.end() ? Failure::Kind::Other : found->kind;
}

bool isRefusal(const PGresult *result)
{
    const ExecStatusType status = libpq::resultStatus(result);
    return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

std::string_view stateOf(const PGresult *result)
{
    const char *state = libpq::resultErrorField(result, PG_DIAG_SQLSTATE);
    return state == nullptr ? std::string_view() : std::string_view(state);
}

void raiseRefusal(const PGresult *refusal, const QString &source)
{
    const char *words = libpq::resultErrorField(refusal, PG_DIAG_MESSAGE_PRIMARY);
    throw Failure(Failure::StoreError, source, firstLine(words != nullptr ? words : libpq::resultErrorMessage(refusal)),
                  kindOfState(stateOf(refusal)));
}

void raiseLost(const QString &reason)
{
    throw Failure(Failure::StoreError, u"PostgresStore"_s,
                  reason.isEmpty() ? u"The server no longer answers"_s : reason, Failure::Kind::ServerLost);
}
