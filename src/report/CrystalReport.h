// The report control itself: reads a definition, takes a snapshot of its rows, and shows them, prints them or
// hands them to the writers of files. What was set stays set from run to run.
#pragma once

#include "report/ReportControl.h"
#include "report/ReportPrinting.h"

#include <functional>
#include <map>
#include <memory>
#include <QObject>
#include <QPointer>

class Clock;
class Dialogs;
class MessageBoxes;
class QWidget;
class ReportPages;
class ReportPreview;
enum class ReportWord;

class CrystalReport final : public QObject, public ReportControl
{
    Q_OBJECT

public:
    // The language by its name ("AlemaoDE"), asked for at each run. The owner stands behind boxes, dialogs
    // and preview windows, which close with it. Without a printer of its own it uses those of the desktop.
    CrystalReport(MessageBoxes &boxes, Dialogs &dialogs, const Clock &clock,
                  std::function<QString()> language, QWidget *owner = nullptr,
                  std::unique_ptr<ReportPrinter> printer = nullptr);

    // Where pictures come from that are no files: bytes by the name that a record has, or none.
    void setHeldPictures(std::function<QByteArray(const QString &)> held) { held_ = std::move(held); }
    ~CrystalReport() override;

    void setReportFileName(const QString &path) override { reportFileName_ = path; }
    void setParameterFields(int index, const QString &field) override { parameterFields_[index] = field; }
    void setConnect(const QString &path) override { connect_ = path; }
    void setDataFiles(int index, const QString &path) override { dataFiles_[index] = path; }
    void ReplaceSelectionFormula(const QString &formula) override { selectionFormula_ = formula; }
    void setSortFields(int index, const QString &field) override { sortFields_[index] = field; }
    void setDestination(int destination) override { destination_ = destination; }
    void setPrintFileType(int type) override { printFileType_ = type; }
    void setWindowTitle(const QString &title) override { windowTitle_ = title; }
    void setWindowState(int state) override { windowState_ = state; }
    void setWindowShowPrintBtn(bool shown) override { printButton_ = shown; }
    void setWindowShowRefreshBtn(bool shown) override { refreshButton_ = shown; }
    void setWindowShowSearchBtn(bool shown) override { searchButton_ = shown; }
    void PrinterSelect() override;
    void setAction(int action) override;

    // The preview window of the last run, as long as it is open.
    ReportPreview *preview() const;

private:
    QWidget *frontWindow() const;
    std::shared_ptr<ReportPages> pages() const;
    void showPreview();
    void printAtOnce(ReportPages &pages, QWidget *owner);
    void printShown();
    void print(ReportPages &pages, QWidget *owner);
    void savePdf(ReportPages &pages, QWidget *owner);
    void exportToFile();
    void sayLostWhenFound();
    void sayLost(ReportPages &pages, QWidget *owner) const;
    void say(PrintResult result, QWidget *owner) const;
    void say(ReportWord word, ReportWord title, QWidget *owner) const;
    QString suggestedFile(const QString &title, const QString &suffix) const;

    MessageBoxes &boxes_;
    Dialogs &dialogs_;
    const Clock &clock_;
    std::function<QString()> language_;
    QWidget *owner_;
    std::unique_ptr<ReportPrinter> printer_;
    std::function<QByteArray(const QString &)> held_;
    QPointer<ReportPreview> preview_;
    QMetaObject::Connection waiting_; // for the last page of what is shown

    QString reportFileName_;
    std::map<int, QString> parameterFields_;
    QString connect_;
    std::map<int, QString> dataFiles_;
    QString selectionFormula_;
    std::map<int, QString> sortFields_;
    int destination_ = Screen;
    int printFileType_ = Text;
    QString windowTitle_;
    int windowState_ = 0;
    bool printButton_ = true;
    bool refreshButton_ = false;
    bool searchButton_ = false;
};
