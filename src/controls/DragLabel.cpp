#include "controls/DragLabel.h"

#include <QMouseEvent>

void DragLabel::mousePressEvent(QMouseEvent *event) { grasped_ = event->position().toPoint(); }

void DragLabel::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) return;
    dragging_ = true;
    Q_EMIT Dragged(corner(*event));
}

void DragLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !dragging_) return;
    dragging_ = false;
    Q_EMIT Dragged(corner(*event));
    Q_EMIT Dropped();
}

// Reckoned from the screen: the event's own point is stale where the window has moved since it was sent.
QPoint DragLabel::corner(const QMouseEvent &event) const
{
    return event.globalPosition().toPoint() - grasped_;
}
