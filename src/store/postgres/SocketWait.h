// Waits for a socket, and for nothing else: no event of the program is handled meanwhile.
#pragma once

#include "store/postgres/PostgresPatience.h"

// False once the time is over. Also true where the socket has broken, which whoever uses it then learns.
bool socketReady(int socket, bool toRead, bool toWrite, const Deadline &deadline);
