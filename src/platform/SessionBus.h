// The desktop's message bus.
#pragma once

// Whether there is one. Asking for a bus that isn't there can start one, or wait for it, so this is asked
// first.
bool sessionBusIsThere();
