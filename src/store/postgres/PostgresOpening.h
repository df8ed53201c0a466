// The way to an open connection, in steps of which none waits: the names of the hosts, then the library's own steps.
// Whoever drives it waits for the socket, in whichever way suits.
#pragma once

#include "store/postgres/HostLookup.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresFailure.h"
#include "store/postgres/PostgresPatience.h"

#include <memory>
#include <optional>

class PostgresOpening
{
public:
    enum class Waits { ToRead, ToWrite, NoMore };

    // Begins at once. The settings are what each session of the server begins with ("lock_timeout=3000").
    PostgresOpening(PostgresAddress address, QStringList settings);

    int socket() const; // may be another one after each step
    Waits waits() const { return waits_; }

    // To be called when the socket is ready. Raises Failure where it goes no further.
    void step();

    // Once nothing is waited for any more.
    PostgresConnection taken();

private:
    void start(const QHash<QString, QList<QHostAddress>> &found);
    [[noreturn]] void fail() const;
    QString unknownName(const QHash<QString, QList<QHostAddress>> &found) const;

    PostgresAddress address_;
    QStringList settings_;
    std::optional<HostLookup> lookup_; // while it is asked
    PostgresConnection connection_;
    ConnStatusType stage_ = CONNECTION_NEEDED; // which the last step began with
    Waits waits_ = Waits::ToRead;
};

// The whole way, waiting at most for as long as is told. Raises Failure.
PostgresConnection openNow(const PostgresAddress &address, const QStringList &settings, const Deadline &deadline);
