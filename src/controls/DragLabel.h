// A label by which something is dragged: it tells where the pointer wants it to be, and moves nothing itself.
#pragma once

#include "controls/ElidingLabel.h"

class DragLabel : public ElidingLabel
{
    Q_OBJECT
public:
    using ElidingLabel::ElidingLabel;

Q_SIGNALS:
    // At each move of the pointer with the left button down: where on the screen the label's top left corner
    // belongs, so that the point that was grasped stays under the pointer. Once more as the button comes up.
    void Dragged(const QPoint &corner);

    // The button has come up after a drag. A mere click tells nothing.
    void Dropped();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QPoint corner(const QMouseEvent &event) const;

    QPoint grasped_; // the point of the label that was pressed
    bool dragging_ = false;
};
