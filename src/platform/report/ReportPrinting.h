// Where a report goes when it leaves the screen: a printer of the desktop, or a PDF file.
#pragma once

#include <functional>
#include <QString>

class QPagedPaintDevice;
class QWidget;
class ReportPages;

// What became of a print.
enum class PrintResult { Done, Cancelled, NoPrinter, Rejected };

class ReportPrinter
{
public:
    virtual ~ReportPrinter() = default;

    // Lets the person choose a printer, which stays chosen. False after a cancel, which changes nothing.
    virtual bool choose(QWidget *owner) = 0;
    // Prints all pages on the chosen printer, or on the default one. Told after each page; false from it
    // stops.
    virtual PrintResult print(ReportPages &pages, const QString &title,
                              const std::function<bool(int page)> &painted) = 0;
};

// All pages on a device that knows nothing yet of the report's paper. False when it was stopped or couldn't
// be painted.
bool paintPages(ReportPages &pages, QPagedPaintDevice &device, const std::function<bool(int page)> &painted);
