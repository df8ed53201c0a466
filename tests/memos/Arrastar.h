// The hand that drags an edge or a title.
#pragma once

#include <QTest>

namespace arrastar
{
// One event of the mouse over a control, at a point of the screen.
inline void Enviar(QWidget &pega, QEvent::Type tipo, const QPoint &ecra, Qt::MouseButton botao,
                   Qt::MouseButtons premidos)
{
    QMouseEvent evento(tipo, pega.mapFromGlobal(ecra), ecra, botao, premidos, Qt::NoModifier);
    QApplication::sendEvent(&pega, &evento);
}

// Presses the middle of the control and pulls it that far in four moves. The button stays down.
inline QPoint Puxar(QWidget &pega, const QPoint &por, Qt::MouseButton botao = Qt::LeftButton)
{
    constexpr int passos = 4;
    const QPoint ecra = pega.mapToGlobal(pega.rect().center());
    Enviar(pega, QEvent::MouseButtonPress, ecra, botao, botao);
    for (int i = 1; i <= passos; ++i)
        Enviar(pega, QEvent::MouseMove, ecra + por * i / passos, Qt::NoButton, botao);
    return ecra + por;
}

inline void Largar(QWidget &pega, const QPoint &ecra, Qt::MouseButton botao = Qt::LeftButton)
{
    Enviar(pega, QEvent::MouseButtonRelease, ecra, botao, Qt::NoButton);
}

inline void Arrastar(QWidget &pega, const QPoint &por, Qt::MouseButton botao = Qt::LeftButton)
{
    Largar(pega, Puxar(pega, por, botao), botao);
}
} // namespace arrastar
