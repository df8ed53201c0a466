#include "controls/IconLabel.h"

#include <QMouseEvent>
#include <QPainter>

void IconLabel::setIcon(const QIcon &icon)
{
    icon_ = icon;
    update();
}

void IconLabel::mouseReleaseEvent(QMouseEvent *event)
{
    QWidget::mouseReleaseEvent(event); // lets it pass on to what the picture lies on
    const bool inside = rect().contains(event->position().toPoint());
    if (inside && event->button() == Qt::LeftButton) Q_EMIT Click();
}

void IconLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
