#include "report/ReportPreview.h"

#include "report/ReportPages.h"
#include "report/ReportView.h"
#include "report/ReportWords.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyle>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace
{
constexpr double step = 1.25;

QAction *newAction(QToolBar &bar, const char *name, const QString &text, const QList<QKeySequence> &keys)
{
    QAction *action = bar.addAction(text);
    action->setObjectName(QLatin1StringView(name));
    action->setShortcuts(keys);
    const QString key = keys.isEmpty() ? QString() : keys.first().toString(QKeySequence::NativeText);
    if (QWidget *button = bar.widgetForAction(action)) button->setAccessibleName(text); // it may show a sign
    action->setToolTip(key.isEmpty() ? text : u"%1 (%2)"_s.arg(text, key));
    return action;
}
} // namespace

ReportPreview::ReportPreview(std::shared_ptr<ReportPages> pages, const Look &look, QWidget *owner)
    : QMainWindow(owner, Qt::Window),
      view_(new ReportView(this)),
      looking_(new QToolBar(this)),
      outputs_(new QToolBar(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(view_);
    addPageMoves(*looking_, look.language);
    looking_->addSeparator();
    addZooms(*looking_, look.language);
    addOutputs(*outputs_, look);
    for (QToolBar *bar : {looking_, outputs_}) {
        bar->setMovable(false);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        addToolBar(bar);
    }

    connect(view_, &ReportView::pageChanged, this, &ReportPreview::showPage);
    connect(view_, &ReportView::pagesFound, this, &ReportPreview::showCount);
    setPages(std::move(pages));
    view_->setAccessibleName(reportWord(ReportWord::Page, look.language));
    view_->setFocus();
    resize(1000, 800);
}

void ReportPreview::addPageMoves(QToolBar &bar, const QString &language)
{
    const auto move = [&](const char *name, ReportWord word, QStyle::StandardPixmap icon,
                          const QKeySequence &key) {
        QAction *action = newAction(bar, name, reportWord(word, language), {key});
        action->setIcon(style()->standardIcon(icon));
        return action;
    };
    first_ = move("first", ReportWord::First, QStyle::SP_MediaSkipBackward, Qt::CTRL | Qt::Key_Home);
    previous_ =
        move("previous", ReportWord::Previous, QStyle::SP_MediaSeekBackward, Qt::CTRL | Qt::Key_PageUp);
    bar.addWidget(new QLabel(u' ' + reportWord(ReportWord::Page, language) + u' '));
    pageBox_ = new QSpinBox;
    pageBox_->setObjectName("page"_L1);
    pageBox_->setAccessibleName(reportWord(ReportWord::Page, language));
    pageBox_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    pageBox_->setAlignment(Qt::AlignRight);
    pageBox_->setKeyboardTracking(false);
    bar.addWidget(pageBox_);
    count_ = new QLabel;
    count_->setObjectName("count"_L1);
    bar.addWidget(count_);
    next_ = move("next", ReportWord::Next, QStyle::SP_MediaSeekForward, Qt::CTRL | Qt::Key_PageDown);
    last_ = move("last", ReportWord::Last, QStyle::SP_MediaSkipForward, Qt::CTRL | Qt::Key_End);

    connect(first_, &QAction::triggered, this, [this] { view_->goTo(0); });
    connect(previous_, &QAction::triggered, this, [this] { view_->goTo(view_->page() - 1); });
    connect(next_, &QAction::triggered, this, [this] { view_->goTo(view_->page() + 1); });
    connect(last_, &QAction::triggered, this, [this] { view_->goTo(pages()->found() - 1); });
    connect(pageBox_, &QSpinBox::valueChanged, this, [this](int page) { view_->goTo(page - 1); });
}

void ReportPreview::addZooms(QToolBar &bar, const QString &language)
{
    const auto word = [&](ReportWord w) { return reportWord(w, language); };
    QAction *out = newAction(bar, "zoomOut", word(ReportWord::ZoomOut), {Qt::CTRL | Qt::Key_Minus});
    out->setIconText(u"\u2212"_s);
    QAction *in = newAction(bar, "zoomIn", word(ReportWord::ZoomIn),
                            {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    in->setIconText(u"+"_s);
    QAction *width = newAction(bar, "fitWidth", word(ReportWord::FitWidth), {Qt::CTRL | Qt::Key_1});
    QAction *whole = newAction(bar, "wholePage", word(ReportWord::WholePage), {Qt::CTRL | Qt::Key_0});

    connect(out, &QAction::triggered, view_, [this] { view_->zoomBy(1 / step); });
    connect(in, &QAction::triggered, view_, [this] { view_->zoomBy(step); });
    connect(width, &QAction::triggered, view_, &ReportView::fitWidth);
    connect(whole, &QAction::triggered, view_, &ReportView::wholePage);
}

void ReportPreview::addOutputs(QToolBar &bar, const Look &look)
{
    const auto word = [&](ReportWord w) { return reportWord(w, look.language); };
    QAction *print = newAction(bar, "print", word(ReportWord::Print), {QKeySequence::Print});
    print->setVisible(look.print);
    QAction *pdf = newAction(bar, "pdf", word(ReportWord::SavePdf), {QKeySequence::Save});
    QAction *refresh = newAction(bar, "refresh", word(ReportWord::Refresh), {Qt::Key_F5});
    refresh->setVisible(look.refresh);
    if (look.search) {
        searched_ = new QLineEdit;
        searched_->setObjectName("search"_L1);
        searched_->setPlaceholderText(word(ReportWord::Search));
        searched_->setAccessibleName(word(ReportWord::Search));
        searched_->setMaximumWidth(200 * fontInfo().pixelSize() /
                                   11); // as drawn for letters of eleven pixels
        bar.addWidget(searched_);
        connect(searched_, &QLineEdit::returnPressed, this, &ReportPreview::search);
    }
    bar.addSeparator();
    QAction *close = newAction(bar, "close", word(ReportWord::Close), {QKeySequence::Close});

    connect(print, &QAction::triggered, this, &ReportPreview::printWanted);
    connect(pdf, &QAction::triggered, this, &ReportPreview::pdfWanted);
    connect(refresh, &QAction::triggered, this, &ReportPreview::refreshWanted);
    connect(close, &QAction::triggered, this, &QWidget::close);
}

void ReportPreview::setPages(std::shared_ptr<ReportPages> pages)
{
    lastFound_ = 0;
    view_->setPages(std::move(pages));
}

const std::shared_ptr<ReportPages> &ReportPreview::pages() const { return view_->pages(); }

// In a row where both have room, and else one below the other: long words in large letters hid the last
// buttons.
void ReportPreview::resizeEvent(QResizeEvent *event)
{
    const bool room = looking_->sizeHint().width() + outputs_->sizeHint().width() <= event->size().width();
    if (room == toolBarBreak(outputs_)) room ? removeToolBarBreak(outputs_) : insertToolBarBreak(outputs_);
}

void ReportPreview::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

void ReportPreview::showPage(int page)
{
    const QSignalBlocker quiet(pageBox_);
    pageBox_->setValue(page + 1);
    for (QAction *back : {first_, previous_})
        back->setEnabled(page > 0);
    for (QAction *forth : {next_, last_})
        forth->setEnabled(page + 1 < pages()->found());
}

void ReportPreview::showCount(int pages, bool all)
{
    {
        const QSignalBlocker quiet(pageBox_);
        pageBox_->setRange(1, pages);
    }
    count_->setText(u" / %1%2 "_s.arg(QString::number(pages), all ? u""_s : u"\u2026"_s));
    showPage(view_->page());
}

// Goes to the page of the next record that holds the text in any field; begins anew behind the last one.
void ReportPreview::search()
{
    const ReportData &records = pages()->data();
    const std::size_t width = pages()->definition().fields.size();
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::size_t record = (lastFound_ + i) % records.size();
        for (std::size_t field = 0; field < width; ++field) {
            if (!records.field(record, field).contains(searched_->text(), Qt::CaseInsensitive)) continue;
            lastFound_ = record + 1;
            return view_->goTo(pages()->pageOf(record));
        }
    }
}
