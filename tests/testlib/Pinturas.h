// How often a widget is painted from now on.
#pragma once

#include <QEvent>
#include <QWidget>

class Pinturas : public QObject
{
public:
    explicit Pinturas(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) ++vezes;
        return false;
    }

    int vezes = 0;
};
