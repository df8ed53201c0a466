// The time zone is the system's: no process has one of its own. The suite's is that of Lisbon.
#pragma once

namespace fuso
{
inline void Lisboa() {}
} // namespace fuso
