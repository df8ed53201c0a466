// The window in which a report is looked at before it is printed.
#pragma once

#include <memory>
#include <QMainWindow>

class QAction;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolBar;
class ReportPages;
class ReportView;

class ReportPreview final : public QMainWindow
{
    Q_OBJECT

public:
    struct Look {
        QString language;
        bool print = true; // which of the buttons there are
        bool refresh = false;
        bool search = false;
    };

    ReportPreview(std::shared_ptr<ReportPages> pages, const Look &look, QWidget *owner);

    void setPages(std::shared_ptr<ReportPages> pages);
    const std::shared_ptr<ReportPages> &pages() const;

Q_SIGNALS:
    void printWanted();
    void pdfWanted();
    void refreshWanted();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addPageMoves(QToolBar &bar, const QString &language);
    void addZooms(QToolBar &bar, const QString &language);
    void addOutputs(QToolBar &bar, const Look &look);
    void showPage(int page);
    void showCount(int pages, bool all);
    void search();

    ReportView *view_;
    QToolBar *looking_; // which page, and how large
    QToolBar *outputs_;
    QSpinBox *pageBox_ = nullptr;
    QLabel *count_ = nullptr;
    QLineEdit *searched_ = nullptr;
    QAction *first_ = nullptr;
    QAction *previous_ = nullptr;
    QAction *next_ = nullptr;
    QAction *last_ = nullptr;
    std::size_t lastFound_ = 0; // one behind the record that the last search found
};
