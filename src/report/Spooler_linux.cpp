#include "report/Spooler.h"

#include <cups/cups.h>

// A printer hands its job over when the painter ends, however few pages it has: meanwhile the spooler cannot
// be reached.
void spooler::drop(QPrinter *, const std::function<void()> &endPainter)
{
    cupsSetServer("/dev/null");
    endPainter();
    cupsSetServer(nullptr);
}

bool spooler::tookJob(const QPrinter &) { return cupsLastError() <= IPP_STATUS_OK_EVENTS_COMPLETE; }
