// How often a widget is painted from now on.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <utility>

class Pinturas : public QObject
{
public:
    explicit Pinturas(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) ++vezes;
        return false;
    }

    // How often since it was asked last, what waits to be painted with it.
    int Feitas()
    {
        QCoreApplication::processEvents();
        return std::exchange(vezes, 0);
    }

    int vezes = 0;
};
