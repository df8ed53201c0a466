#include "report/ReportView.h"

#include "report/ReportPages.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace
{
constexpr int gap = 16; // pixels round each page
constexpr double twipsPerInch = 1440;
constexpr double least = 0.1;
constexpr double most = 8;
constexpr double step = 1.25;
} // namespace

ReportView::ReportView(QWidget *parent) : QAbstractScrollArea(parent)
{
    constexpr int lineStep = 60;
    viewport()->setBackgroundRole(QPalette::Mid);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // or it would come and go as the width is fitted to it
    verticalScrollBar()->setSingleStep(lineStep);
    horizontalScrollBar()->setSingleStep(lineStep);
    connect(&finding_, &QTimer::timeout, this, &ReportView::findMore);
}

void ReportView::setPages(std::shared_ptr<ReportPages> pages)
{
    pages_ = std::move(pages);
    refit();
    if (!pages_->complete()) finding_.start(0);
    Q_EMIT pagesFound(pages_->found(), pages_->complete());
}

// A slice short enough that keys and wheel don't notice.
void ReportView::findMore()
{
    constexpr qint64 slice = 12; // ms
    QElapsedTimer time;
    time.start();
    while (!pages_->complete() && time.elapsed() < slice)
        pages_->findNext();
    if (pages_->complete()) finding_.stop();
    arrange();
    if (pages_->complete()) viewport()->update(); // each page can now say how many there are
    Q_EMIT pagesFound(pages_->found(), pages_->complete());
}

double ReportView::pixelsPerTwip() const { return zoom_ * logicalDpiX() / twipsPerInch; }

QSize ReportView::pageSize() const { return (pages_->paper() * pixelsPerTwip()).toSize(); }

int ReportView::stride() const { return pageSize().height() + gap; }

int ReportView::page() const
{
    const int middle = verticalScrollBar()->value() + viewport()->height() / 3;
    return pages_ ? std::clamp((middle - gap) / stride(), 0, pages_->found() - 1) : 0;
}

void ReportView::goTo(int page)
{
    arrange(); // a search may have found more pages
    verticalScrollBar()->setValue(page * stride());
}

void ReportView::zoomBy(double factor) { setZoom(zoom_ * factor, Free); }

void ReportView::fitWidth()
{
    fit_ = Width;
    refit();
}

void ReportView::wholePage()
{
    fit_ = Whole;
    refit();
}

void ReportView::refit()
{
    if (!pages_) return;
    const QSizeF natural = pages_->paper() * (logicalDpiX() / twipsPerInch);
    const double across = (viewport()->width() - 2 * gap) / natural.width();
    const double down = (viewport()->height() - 2 * gap) / natural.height();
    setZoom(fit_ == Free ? zoom_ : fit_ == Width ? across : std::min(across, down), fit_);
}

// The page in view stays in view.
void ReportView::setZoom(double zoom, Fit fit)
{
    const double place = static_cast<double>(verticalScrollBar()->value()) / stride();
    fit_ = fit;
    zoom_ = std::clamp(zoom, least, most);
    arrange();
    verticalScrollBar()->setValue(qRound(place * stride()));
    viewport()->update();
}

void ReportView::arrange()
{
    const int height = pages_->found() * stride() + gap;
    const int width = pageSize().width() + 2 * gap;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
}

void ReportView::paintEvent(QPaintEvent *event)
{
    if (!pages_) return;
    QPainter painter(viewport());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QSize size = pageSize();
    const int left = std::max(gap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    const int top = gap - verticalScrollBar()->value();
    const int first = std::max(0, (event->rect().top() - top - size.height()) / stride());
    for (int page = first; page < pages_->found(); ++page) {
        const QRect sheet(QPoint(left, top + page * stride()), size);
        if (sheet.top() > event->rect().bottom()) break;
        painter.fillRect(sheet.translated(2, 3), palette().color(QPalette::Dark));
        painter.fillRect(sheet, Qt::white);
        painter.save();
        painter.setClipRect(sheet);
        painter.translate(sheet.topLeft());
        painter.scale(pixelsPerTwip(), pixelsPerTwip());
        pages_->paint(painter, page, ReportPages::OnScreen);
        painter.restore();
    }
}

void ReportView::resizeEvent(QResizeEvent *) { refit(); }

void ReportView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    if (event->angleDelta().y() != 0) zoomBy(event->angleDelta().y() > 0 ? step : 1 / step);
}

void ReportView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        return goTo(0);
    case Qt::Key_End:
        return goTo(pages_->found() - 1);
    case Qt::Key_PageUp:
        return verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void ReportView::scrollContentsBy(int, int)
{
    viewport()->update();
    if (pages_) Q_EMIT pageChanged(page());
}
