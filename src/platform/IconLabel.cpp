#include "platform/IconLabel.h"

#include <QPainter>

void IconLabel::setIcon(const QIcon &icon)
{
    icon_ = icon;
    update();
}

void IconLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    icon_.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
