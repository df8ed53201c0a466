// Where a report goes when it leaves the screen: a printer of the desktop, or a PDF file.
#pragma once

#include <functional>
#include <memory>
#include <QString>

class QPagedPaintDevice;
class QPrinter;
class QWidget;
class ReportPages;

// What became of it.
enum class PrintResult { Done, Cancelled, NoPrinter, Rejected };

// Told of each page before it is painted; false stops.
using PageWatch = std::function<bool(int page, int pages)>;

class ReportPrinter
{
public:
    virtual ~ReportPrinter() = default;

    // Lets the person choose a printer, which stays chosen. A cancel changes nothing, and no question is
    // asked where there is none.
    virtual PrintResult choose(QWidget *owner) = 0;
    // Prints on the chosen printer, or on the default one, the pages that were chosen with it. A job that is
    // stopped or fails halfway is not printed at all.
    virtual PrintResult print(ReportPages &pages, const QString &title, const PageWatch &watch) = 0;
};

class DesktopReportPrinter final : public ReportPrinter
{
public:
    DesktopReportPrinter();
    ~DesktopReportPrinter() override;

    PrintResult choose(QWidget *owner) override;
    PrintResult print(ReportPages &pages, const QString &title, const PageWatch &watch) override;

private:
    std::unique_ptr<QPrinter> chosen_; // null until one was chosen
};

// All pages as a PDF file. Rejected when the file can't be written; an earlier one is there until the new one
// is whole.
PrintResult writePdf(ReportPages &pages, const QString &title, const QString &path, const PageWatch &watch);
