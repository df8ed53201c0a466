// Ticks of timers without waiting for them.
#pragma once

#include <QTimer>

// One tick, now, whether the timer runs or not.
inline void Disparar(QTimer &timer) { QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection); }
