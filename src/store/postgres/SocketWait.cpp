#include "store/postgres/SocketWait.h"

#include <cerrno>
#include <poll.h>

bool socketReady(int socket, bool toRead, bool toWrite, const Deadline &deadline)
{
    pollfd waited{};
    waited.fd = socket;
    waited.events = static_cast<short>((toRead ? POLLIN : 0) | (toWrite ? POLLOUT : 0));
    for (;;) {
        const int ready = ::poll(&waited, 1, static_cast<int>(deadline.left().count()));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return true;
        if (ready == 0) return false;
    }
}
