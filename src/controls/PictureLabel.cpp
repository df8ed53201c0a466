#include "controls/PictureLabel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace
{
constexpr qreal focusLine = 2; // pixels; the style's own frame is lost on a photograph

bool presses(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space; }
} // namespace

void PictureLabel::mouseReleaseEvent(QMouseEvent *event)
{
    QLabel::mouseReleaseEvent(event); // lets it pass on to what the picture lies on
    const bool inside = rect().contains(event->position().toPoint());
    if (inside && event->button() == Qt::LeftButton) Q_EMIT Click();
}

// A key that is held down presses once.
void PictureLabel::keyPressEvent(QKeyEvent *event)
{
    if (!presses(event->key())) return QLabel::keyPressEvent(event);
    if (!event->isAutoRepeat()) Q_EMIT Click();
}

void PictureLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), focusLine));
    painter.drawRect(QRectF(rect()).adjusted(focusLine / 2, focusLine / 2, -focusLine / 2, -focusLine / 2));
}
