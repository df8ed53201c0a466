// What the desktop's spooler does with a job: it may refuse one after the toolkit has long said yes, and the
// toolkit knows no way to drop one that was begun.
#pragma once

#include <functional>

class QPrinter;

namespace spooler
{
// Lets the painter of a begun job end, and nothing of it is printed. Null where it paints on no printer.
void drop(QPrinter *printer, const std::function<void()> &endPainter);

// The spooler's word on the last job of this thread, which went to this printer.
bool tookJob(const QPrinter &printer);
} // namespace spooler
