// What the process has freed goes back to the system.
#pragma once

// The allocator keeps what was freed for a next use, several MB behind a start that read a large book. Worth
// a call where much was used for once and the process then waits; it takes about a millisecond. Does nothing
// where the system's allocator has no such call.
void returnFreeMemory();
