// Room in a container that is filled piece by piece.
#pragma once

#include <algorithm>
#include <cstddef>

// Every step of growth copies what is there into new pages, which costs more than to read it. Large ones grow
// by larger steps: pages in which nothing comes to stand cost nothing.
template<class Container> void makeRoom(Container &container, std::size_t more)
{
    constexpr std::size_t large = 65536; // bytes
    const std::size_t needed = container.size() + more;
    const std::size_t room = container.capacity();
    if (needed <= room) return;
    container.reserve(std::max(needed, room * (room * sizeof container[0] < large ? 2 : 4)));
}
