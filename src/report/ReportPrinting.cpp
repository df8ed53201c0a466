#include "report/ReportPrinting.h"

#include "platform/ReplaceFile.h"
#include "report/ReportPages.h"
#include "report/Spooler.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace
{
constexpr double twipsPerInch = 1440;
constexpr int pdfResolution = 1200;

QPageLayout layoutOf(const ReportDefinition &definition)
{
    return {definition.pageSize, definition.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

// The margins are the definition's own; the device begins at the sheet's corner. Devices refuse a layout
// without a word, so what they have taken is looked at.
bool takesPaper(QPrinter &printer, const ReportDefinition &definition)
{
    printer.setFullPage(true);
    printer.setPageSize(definition.pageSize);
    printer.setPageOrientation(definition.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    constexpr double tolerance = 3; // points
    const QSizeF wanted = definition.pageSize.size(QPageSize::Point);
    const QSizeF taken = printer.pageLayout().pageSize().size(QPageSize::Point);
    return std::abs(taken.width() - wanted.width()) < tolerance &&
           std::abs(taken.height() - wanted.height()) < tolerance;
}

struct PageRange {
    int first; // counted from 0
    int last;
};

enum class Painted { All, Stopped, Failed };

Painted paintPages(ReportPages &pages, QPagedPaintDevice &device, PageRange range, const PageWatch &watch)
{
    QPainter painter;
    if (!painter.begin(&device)) return Painted::Failed;
    const double scale = device.logicalDpiX() / twipsPerInch;
    for (int page = range.first; page <= range.last; ++page) {
        const bool stopped = !watch(page, pages.found());
        if (stopped || (page > range.first && !device.newPage())) {
            spooler::drop(dynamic_cast<QPrinter *>(&device), [&painter] { painter.end(); });
            return stopped ? Painted::Stopped : Painted::Failed;
        }
        painter.resetTransform();
        painter.scale(scale, scale);
        pages.paint(painter, page, ReportPages::OnPaper);
    }
    return painter.end() ? Painted::All : Painted::Failed;
}

// Finds all pages, so that each can say how many there are.
bool findAll(ReportPages &pages, const PageWatch &watch)
{
    constexpr int often = 100;
    while (!pages.complete()) {
        if (pages.found() % often == 0 && !watch(0, pages.found())) return false;
        pages.findNext();
    }
    return true;
}

PrintResult writePages(ReportPages &pages, const QString &title, const QString &path, PageRange range,
                       const PageWatch &watch)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(pdfResolution);
    writer.setTitle(title);
    writer.setCreator({});
    writer.setPageLayout(layoutOf(pages.definition()));
    const Painted painted = paintPages(pages, writer, range, watch);
    if (painted == Painted::Stopped) return PrintResult::Cancelled;
    return painted == Painted::All && replaceFile(path, buffer.data()) ? PrintResult::Done
                                                                       : PrintResult::Rejected;
}

// The pages that were chosen in the printer's dialog: all unless told otherwise.
PageRange chosenRange(const QPrinter &printer, int pages)
{
    return {std::max(printer.fromPage(), 1) - 1,
            (printer.toPage() > 0 ? std::min(printer.toPage(), pages) : pages) - 1};
}
} // namespace

DesktopReportPrinter::DesktopReportPrinter() = default;
DesktopReportPrinter::~DesktopReportPrinter() = default;

PrintResult DesktopReportPrinter::choose(QWidget *owner)
{
    if (QPrinterInfo::availablePrinters().isEmpty()) return PrintResult::NoPrinter;
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), owner);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintShowPageSize);
    if (dialog.exec() != QDialog::Accepted) return PrintResult::Cancelled;
    chosen_ = std::move(printer);
    return PrintResult::Done;
}

PrintResult DesktopReportPrinter::print(ReportPages &pages, const QString &title, const PageWatch &watch)
{
    const QString file = chosen_ ? chosen_->outputFileName() : QString();
    if (file.isEmpty() && QPrinterInfo::availablePrinters().isEmpty()) return PrintResult::NoPrinter;
    if (!chosen_) chosen_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (file.isEmpty() && chosen_->printerName().isEmpty()) return PrintResult::NoPrinter;
    if (!findAll(pages, watch)) return PrintResult::Cancelled;
    const PageRange range = chosenRange(*chosen_, pages.found());
    if (!file.isEmpty()) return writePages(pages, title, file, range, watch);

    if (!takesPaper(*chosen_, pages.definition())) return PrintResult::Rejected;
    chosen_->setDocName(title);
    const Painted painted = paintPages(pages, *chosen_, range, watch);
    if (painted == Painted::Stopped) return PrintResult::Cancelled;
    return painted == Painted::All && spooler::tookJob(*chosen_) ? PrintResult::Done : PrintResult::Rejected;
}

PrintResult writePdf(ReportPages &pages, const QString &title, const QString &path, const PageWatch &watch)
{
    if (!findAll(pages, watch)) return PrintResult::Cancelled;
    return writePages(pages, title, path, {0, pages.found() - 1}, watch);
}
