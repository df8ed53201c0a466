#include "report/CrystalReport.h"

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Failure.h"
#include "platform/MessageBoxes.h"
#include "report/ReportExport.h"
#include "report/ReportLanguage.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportPrinting.h"
#include "report/ReportView.h"
#include "report/ReportWords.h"

#include <QApplication>
#include <QDir>
#include <QProgressBar>
#include <QProgressDialog>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// "name;value;TRUE"; a value may hold a semicolon of its own.
std::pair<QString, QString> parameterOf(const QString &field)
{
    const qsizetype first = field.indexOf(u';');
    const qsizetype last = field.lastIndexOf(u';');
    if (first <= 0 || last == first)
        throw Failure(Failure::InvalidPropertyValue, u"CrystalReport"_s, u"No parameter: %1"_s.arg(field));
    return {field.left(first), field.mid(first + 1, last - first - 1)};
}

// A bar with a cancel, for as long as pages are written; it comes only when that takes a while.
class Progress
{
public:
    Progress(ReportWord title, const QString &language, QWidget *owner)
        : text_(reportWord(ReportWord::Printing, language)),
          dialog_({}, reportWord(ReportWord::Cancel, language), 0, 0, owner)
    {
        dialog_.setWindowTitle(reportWord(title, language));
        dialog_.findChild<QProgressBar *>()->setAccessibleName(dialog_.windowTitle());
        dialog_.setWindowModality(owner ? Qt::WindowModal : Qt::ApplicationModal);
        dialog_.setMinimumDuration(600);
        // Its title and the text of the last page fit, as drawn for letters of eleven pixels.
        dialog_.setMinimumWidth(360 * dialog_.fontInfo().pixelSize() / 11);
    }

    bool operator()(int page, int pages)
    {
        dialog_.setMaximum(pages);
        dialog_.setLabelText(text_.arg(page + 1).arg(pages));
        dialog_.setValue(page);
        return !dialog_.wasCanceled();
    }

private:
    QString text_;
    QProgressDialog dialog_;
};

struct FileKind {
    const char16_t *filter;
    const char16_t *suffix;
};

FileKind fileKind(int type)
{
    switch (type) {
    case ReportControl::Spreadsheet:
        return {u"Excel|*.xls", u"xls"};
    case ReportControl::Document:
        return {u"Word|*.doc", u"doc"};
    default:
        return {u"TXT|*.txt", u"txt"};
    }
}
} // namespace

CrystalReport::CrystalReport(MessageBoxes &boxes, Dialogs &dialogs, const Clock &clock,
                             std::function<QString()> language, QWidget *owner,
                             std::unique_ptr<ReportPrinter> printer)
    : boxes_(boxes),
      dialogs_(dialogs),
      clock_(clock),
      language_(std::move(language)),
      owner_(owner),
      printer_(printer ? std::move(printer) : std::make_unique<DesktopReportPrinter>())
{
}

CrystalReport::~CrystalReport() { delete preview_; }

ReportPreview *CrystalReport::preview() const { return preview_; }

void CrystalReport::PrinterSelect() { printer_->choose(frontWindow()); }

void CrystalReport::setAction(int action)
{
    constexpr int run = 1;
    if (action != run) return;
    switch (destination_) {
    case Screen:
        return showPreview();
    case Printer:
        return printAtOnce(*pages(), frontWindow());
    case File:
        return exportToFile();
    default:
        throw Failure(Failure::InvalidPropertyValue, u"CrystalReport"_s,
                      u"There is no destination %1"_s.arg(destination_));
    }
}

// What stands in front and so must own whatever opens now, or it would open behind a modal form.
QWidget *CrystalReport::frontWindow() const
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : owner_;
}

std::shared_ptr<ReportPages> CrystalReport::pages() const
{
    ReportDefinition definition = readReportDefinition(reportFileName_);
    const auto table = dataFiles_.find(0);
    const QString &database =
        table != dataFiles_.end() && !table->second.isEmpty() ? table->second : connect_;
    QStringList sort;
    for (const auto &[index, field] : sortFields_)
        if (!field.isEmpty()) sort << field;
    QHash<QString, QString> parameters;
    for (const auto &[index, field] : parameterFields_)
        parameters.insert(parameterOf(field).first, parameterOf(field).second);
    ReportData data(definition, database, selectionFormula_, sort);
    sayInLanguage(definition, database, language_());
    return std::make_shared<ReportPages>(std::move(definition), std::move(data), std::move(parameters),
                                         clock_.today(), reportWord(ReportWord::Empty, language_()), held_);
}

void CrystalReport::showPreview()
{
    const std::shared_ptr<ReportPages> shown = pages();
    delete preview_;
    preview_ =
        new ReportPreview(shown, {language_(), printButton_, refreshButton_, searchButton_}, frontWindow());
    preview_->setWindowTitle(windowTitle_);
    if (preview_->parentWidget()) preview_->setWindowModality(Qt::WindowModal);
    connect(preview_, &ReportPreview::printWanted, this, &CrystalReport::printShown);
    connect(preview_, &ReportPreview::pdfWanted, this, [this] { savePdf(*preview_->pages(), preview_); });
    connect(preview_, &ReportPreview::refreshWanted, this, [this] {
        const std::shared_ptr<ReportPages> anew = pages();
        disconnect(waiting_); // or what is no longer shown would be told as well
        preview_->setPages(anew);
        sayLostWhenFound();
    });
    if (windowState_ == maximised)
        preview_->showMaximized();
    else
        preview_->show();
    sayLostWhenFound();
}

void CrystalReport::printAtOnce(ReportPages &pages, QWidget *owner)
{
    sayLost(pages, owner);
    print(pages, owner);
}

// Nobody is asked for a printer that then gets nothing.
void CrystalReport::printShown()
{
    ReportPages &shown = *preview_->pages();
    const bool empty = shown.data().size() == 0;
    const PrintResult chosen = empty ? PrintResult::Done : printer_->choose(preview_);
    if (chosen == PrintResult::Done)
        print(shown, preview_);
    else
        say(chosen, preview_);
}

// A sheet without a record is worth no paper.
void CrystalReport::print(ReportPages &pages, QWidget *owner)
{
    if (pages.data().size() == 0) return say(ReportWord::Empty, ReportWord::Print, owner);
    Progress progress(ReportWord::Print, language_(), owner);
    say(printer_->print(pages, pages.definition().title, std::ref(progress)), owner);
}

void CrystalReport::savePdf(ReportPages &pages, QWidget *owner)
{
    const auto path =
        dialogs_.saveFile(u"PDF|*.pdf"_s, suggestedFile(pages.definition().title, u"pdf"_s), owner);
    if (!path) return;
    Progress progress(ReportWord::SavePdf, language_(), owner);
    if (writePdf(pages, pages.definition().title, *path, std::ref(progress)) == PrintResult::Rejected)
        say(ReportWord::NotWritten, ReportWord::SavePdf, owner);
}

void CrystalReport::exportToFile()
{
    const std::shared_ptr<ReportPages> exported = pages();
    const FileKind kind = fileKind(printFileType_);
    const QString suffix = QString::fromUtf16(kind.suffix);
    const auto path = dialogs_.saveFile(QString::fromUtf16(kind.filter),
                                        suggestedFile(exported->definition().title, suffix), frontWindow());
    if (!path) return;
    ReportRows rows = exported->rows();
    rows.sheets = exported->definition().detail.newPage;
    exportReport(printFileType_, rows, *path);
}

// The pages of many records are found while the first ones are looked at.
void CrystalReport::sayLostWhenFound()
{
    constexpr std::size_t few = 500;
    const std::shared_ptr<ReportPages> shown = preview_->pages();
    if (shown->complete() || shown->data().size() <= few) return sayLost(*shown, preview_);
    auto *view = preview_->findChild<ReportView *>();
    waiting_ = connect(view, &ReportView::pagesFound, this, [this](int, bool all) {
        if (all) sayLost(*preview_->pages(), preview_);
    });
}

// Whoever sends a letter must know which lines of the address are missing on it.
void CrystalReport::sayLost(ReportPages &pages, QWidget *owner) const
{
    constexpr qsizetype most = 10; // lines that are named
    QStringList lost = pages.lost();
    lost.removeDuplicates();
    if (lost.isEmpty()) return;
    QStringList said{reportWord(ReportWord::DoesNotFit, language_()), {}};
    said << lost.first(std::min(most, lost.size()));
    if (lost.size() > most) said << u"…"_s;
    boxes_.show(said.join("\r\n"_L1), box::exclamation, reportWord(ReportWord::Print, language_()), owner);
}

// Of what went well and of a cancel there is nothing to say.
void CrystalReport::say(PrintResult result, QWidget *owner) const
{
    if (result == PrintResult::NoPrinter) say(ReportWord::NoPrinter, ReportWord::Print, owner);
    if (result == PrintResult::Rejected) say(ReportWord::Rejected, ReportWord::Print, owner);
}

void CrystalReport::say(ReportWord word, ReportWord title, QWidget *owner) const
{
    const int icon = word == ReportWord::Empty ? box::information : box::exclamation;
    boxes_.show(reportWord(word, language_()), icon, reportWord(title, language_()), owner);
}

// In the folder where the desktop's users keep their documents.
QString CrystalReport::suggestedFile(const QString &title, const QString &suffix) const
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(folder).filePath(title + u'.' + suffix);
}
