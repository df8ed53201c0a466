// How a scroll bar looks: flat. The plain style fills it with gradients, and a long one the toolkit then shares out
// among threads that it makes for nothing else.
#pragma once

class QPainter;
class QStyle;
class QStyleOptionSlider;
class QWidget;

// Groove, arrows and slider, where the style places them. The slider stands out from its groove, more so under the
// pointer and while it is held; a bar that has nowhere to go has none.
void drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style,
                   const QWidget *widget);
