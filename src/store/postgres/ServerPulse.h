// Tells a server that takes its time from one that is away. Where an open connection stays quiet a second one is begun to
// the same server, which answers its first question without looking who asks: a word there is a sign of life here. It
// goes no further than that answer, and leaves no line in the server's log.
#pragma once

#include "store/postgres/PostgresPatience.h"

#include <memory>

class ServerPulse
{
public:
    // Of an open connection to a server, over a network or within the machine.
    explicit ServerPulse(int socket);
    ~ServerPulse();
    ServerPulse(const ServerPulse &) = delete;
    ServerPulse &operator=(const ServerPulse &) = delete;

    // Waits until there is something to read, or room to write where that is wanted too. False once the deadline is
    // over, or nothing was heard of the server, at either door, for as long as the deadline says.
    bool ready(bool toWrite, const Deadline &deadline);

private:
    class Knock;

    void follow(const Deadline &deadline);

    int socket_;
    std::unique_ptr<Knock> knock_; // while it is on its way, or after it was in vain
};
