// The program's one look over the toolkit's plain style: pictures of its own family in the boxes and the
// preview, buttons of boxes like those of the forms, a frame round the tab that has the keyboard,
// frames that show at every density, frames of fields and marks that show on dark windows, flat scroll bars,
// asterisks for passwords, and marks, icons and scroll bars that grow with the letters.
#pragma once

#include <QProxyStyle>

class Style final : public QProxyStyle
{
    Q_OBJECT
public:
    Style();

    QIcon standardIcon(StandardPixmap picture, const QStyleOption *option,
                       const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};
