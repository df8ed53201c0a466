#include "controls/ScrollBarDrawing.h"

#include "controls/Contrast.h"
#include "controls/Scale.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace
{
constexpr int besideTheSlider = 2; // pixels
constexpr int roundTheArrow = 4;

// How much of the letters' colour is in that of a part: at rest, under the pointer, held.
struct Shares {
    double atRest = 0;
    double underThePointer = 0;
    double held = 0;
};
constexpr Shares ofTheGroove{0.06, 0.06, 0.06};
constexpr Shares ofTheSlider{0.5, 0.6, 0.7};
constexpr Shares ofAButton{0.06, 0.2, 0.3};

QColor colourOf(const QStyleOptionSlider &option, QStyle::SubControl part, const Shares &shares)
{
    double share = shares.atRest;
    if (option.activeSubControls.testFlag(part))
        share = option.state.testFlag(QStyle::State_Sunken) ? shares.held : shares.underThePointer;
    return mixed(option.palette.color(QPalette::Window), option.palette.color(QPalette::WindowText), share);
}

QStyle::PrimitiveElement arrowOf(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    const bool back = part == QStyle::SC_ScrollBarSubLine;
    if (option.orientation == Qt::Vertical)
        return back ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown;
    const bool left = back == (option.direction == Qt::LeftToRight);
    return left ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight;
}
} // namespace

void drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style,
                   const QWidget *widget)
{
    const auto placeOf = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
    };
    painter.fillRect(option.rect, colourOf(option, QStyle::SC_ScrollBarGroove, ofTheGroove));
    for (const auto part : {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine}) {
        QStyleOption arrow = option;
        arrow.rect = placeOf(part);
        painter.fillRect(arrow.rect, colourOf(option, part, ofAButton));
        const int inside = scale::scaled(roundTheArrow);
        arrow.rect.adjust(inside, inside, -inside, -inside);
        style.drawPrimitive(arrowOf(option, part), &arrow, &painter, widget);
    }
    if (option.maximum <= option.minimum) return;
    const int beside = scale::scaled(besideTheSlider);
    const bool upright = option.orientation == Qt::Vertical;
    const QRect slider = placeOf(QStyle::SC_ScrollBarSlider);
    painter.fillRect(upright ? slider.adjusted(beside, 0, -beside, 0) : slider.adjusted(0, beside, 0, -beside),
                     colourOf(option, QStyle::SC_ScrollBarSlider, ofTheSlider));
}
