// Waits for sockets, and for nothing else: no event of the program is handled meanwhile.
#pragma once

#include "store/postgres/PostgresPatience.h"

#include <poll.h>
#include <span>

// False once the time is over. Also true where the socket has broken, which whoever uses it then learns.
bool socketReady(int socket, bool toRead, bool toWrite, const Deadline &deadline);

// The same for several, until one of them is ready; each says itself what it waits for, and is told what came.
bool anyReady(std::span<pollfd> sockets, std::chrono::milliseconds patience);
