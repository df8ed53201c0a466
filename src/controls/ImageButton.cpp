#include "controls/ImageButton.h"

#include "controls/Scale.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace
{
constexpr int drawnMargin = 6; // pixels, also between picture and caption
}

void ImageButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString caption = option.text;
    option.text.clear();
    option.icon = {};
    painter.drawControl(QStyle::CE_PushButton, option);

    const int margin = scale::scaled(drawnMargin);
    QRect place = rect().adjusted(margin, 0, -margin, 0);
    if (!icon().isNull()) {
        const QRect picture(place.topLeft(), QSize(iconSize().width(), height()));
        icon().paint(&painter, picture, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        place.setLeft(picture.right() + margin);
    }
    const bool showMnemonic = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    const auto flags =
        QFlags<Qt::TextFlag>(Qt::TextWordWrap) | (showMnemonic ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    style()->drawItemText(&painter, place,
                          static_cast<int>(flags) | static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft),
                          option.palette, isEnabled(), caption, QPalette::ButtonText);
}
