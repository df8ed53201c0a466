// How long the interface was kept from its events, at the worst, since the making of the object.
#pragma once

#include <algorithm>
#include <QElapsedTimer>
#include <QTimer>

class Pausas
{
public:
    Pausas()
    {
        relogio_.start();
        QObject::connect(&temporizador_, &QTimer::timeout, &temporizador_,
                         [this] { maior = std::max(maior, relogio_.restart()); });
        temporizador_.setTimerType(Qt::PreciseTimer);
        temporizador_.start(1);
    }

    qint64 maior = 0; // ms

private:
    QElapsedTimer relogio_;
    QTimer temporizador_;
};
