#include "controls/Style.h"

#include "controls/Contrast.h"
#include "controls/Scale.h"
#include "controls/ScrollBarDrawing.h"

#include <QIcon>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{
QString pictureOf(QStyle::StandardPixmap picture)
{
    switch (picture) {
    case QStyle::SP_MessageBoxQuestion:
        return u":/imagens/caixa/pergunta.svg"_s;
    case QStyle::SP_MessageBoxInformation:
        return u":/imagens/caixa/informacao.svg"_s;
    case QStyle::SP_MessageBoxWarning:
        return u":/imagens/caixa/aviso.svg"_s;
    case QStyle::SP_MessageBoxCritical:
        return u":/imagens/caixa/erro.svg"_s;
    case QStyle::SP_MediaSkipBackward:
        return u":/imagens/paginas/primeira.svg"_s;
    case QStyle::SP_MediaSeekBackward:
        return u":/imagens/paginas/anterior.svg"_s;
    case QStyle::SP_MediaSeekForward:
        return u":/imagens/paginas/seguinte.svg"_s;
    case QStyle::SP_MediaSkipForward:
        return u":/imagens/paginas/ultima.svg"_s;
    default:
        return {};
    }
}

// A stroke of one pixel falls between those of a screen at one and a half times the density, where what the
// frame holds may cover it. What is filled is cut at whole ones.
void fillFrame(QPainter &painter, const QRect &place, const QColor &colour)
{
    constexpr int line = 1;
    const QRect right(place.right(), place.top(), line, place.height());
    const QRect lower(place.left(), place.bottom(), place.width(), line);
    painter.fillRect(QRect(place.topLeft(), QSize(line, place.height())), colour);
    painter.fillRect(QRect(place.topLeft(), QSize(place.width(), line)), colour);
    painter.fillRect(right, colour);
    painter.fillRect(lower, colour);
}

bool onDark(const QPalette &palette)
{
    return lettersOn(palette.color(QPalette::Window)) == QColor(Qt::white);
}

// Darker than a light window, and lighter than a dark one, on which there is little that is darker.
QColor frameColour(const QPalette &palette)
{
    constexpr int darker = 140; // percent
    constexpr int lighter = 108;
    constexpr double shareOfLetters = 0.2;
    const QColor window = palette.color(QPalette::Window);
    return onDark(palette) ? mixed(window, palette.color(QPalette::WindowText), shareOfLetters)
                           : window.darker(darker).lighter(lighter);
}

// The plain style's frames are darker than the window, which on a dark one can hardly be seen. That of the
// keyboard has a colour of its own.
void drawFieldFrame(QPainter &painter, const QStyleOption &option)
{
    if (!onDark(option.palette) || option.state.testFlag(QStyle::State_HasFocus)) return;
    constexpr double halfLine = 0.5;
    constexpr double corner = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frameColour(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(halfLine, halfLine, -halfLine, -halfLine), corner,
                            corner);
    painter.restore();
}

bool isMark(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton;
}

// The plain style's outline is darker than the window, which on a dark one cannot be seen.
void drawOutline(QPainter &painter, bool round, const QStyleOption &option)
{
    const QPalette &palette = option.palette;
    const QColor ground = palette.color(QPalette::Window);
    if (!onDark(palette)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(option.state.testFlag(QStyle::State_Enabled)
                       ? readableOn(palette.color(QPalette::Light), ground)
                       : palette.color(QPalette::Disabled, QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    const QRectF place = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    round ? painter.drawEllipse(place) : painter.drawRect(place);
    painter.restore();
}

void drawFrame(QPainter &painter, const QRect &place, const QColor &colour)
{
    painter.save();
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    painter.restore();
}
} // namespace

Style::Style() : QProxyStyle(u"Fusion"_s) {}

QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption *option, const QWidget *widget) const
{
    const QString own = pictureOf(picture);
    return own.isEmpty() ? QProxyStyle::standardIcon(picture, option, widget) : QIcon(own);
}

// What the plain style draws at a size of its own, whatever the letters.
int Style::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    const int drawn = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_MenuButtonIndicator:
    case PM_TabBarIconSize:
    case PM_ToolBarIconSize:
    case PM_MessageBoxIconSize:
    case PM_ScrollBarExtent:
    case PM_ScrollBarSliderMin:
        return scale::scaled(drawn);
    default:
        return drawn;
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                     QStyleHintReturn *returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    if (hint == SH_LineEdit_PasswordCharacter) return u'*';
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                          const QWidget *widget) const
{
    const bool ofList = widget != nullptr && widget->inherits("QComboBoxPrivateContainer");
    if (element == PE_Frame && !ofList)
        return fillFrame(*painter, option->rect, frameColour(option->palette));
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (isMark(element)) drawOutline(*painter, element == PE_IndicatorRadioButton, *option);
    if (element == PE_FrameLineEdit) drawFieldFrame(*painter, *option);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                               const QWidget *widget) const
{
    if (control == CC_ScrollBar)
        return drawScrollBar(*painter, *static_cast<const QStyleOptionSlider *>(option), *this, widget);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox) drawFieldFrame(*painter, *option);
}

// The plain style marks the tab's letters so faintly that it can hardly be told which has the keyboard.
void Style::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element != CE_TabBarTabLabel || !option->state.testFlag(State_HasFocus)) return;
    constexpr int inside = 3; // pixels from the tab's own frame
    drawFrame(*painter, option->rect.adjusted(inside, inside, -inside, -inside),
              option->palette.color(QPalette::WindowText));
}
