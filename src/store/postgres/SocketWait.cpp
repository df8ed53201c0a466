#include "store/postgres/SocketWait.h"

#include <cerrno>

bool socketReady(int socket, bool toRead, bool toWrite, const Deadline &deadline)
{
    pollfd waited{};
    waited.fd = socket;
    waited.events = static_cast<short>((toRead ? POLLIN : 0) | (toWrite ? POLLOUT : 0));
    return anyReady(std::span(&waited, 1), deadline.left());
}

bool anyReady(std::span<pollfd> sockets, std::chrono::milliseconds patience)
{
    const Deadline deadline(patience);
    for (;;) {
        const int ready = ::poll(sockets.data(), sockets.size(), static_cast<int>(deadline.left().count()));
        if (ready > 0) return true;
        if (ready < 0 && errno != EINTR) return true;
        if (ready == 0) return false;
    }
}
