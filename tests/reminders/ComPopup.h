// The notice of a due task as a person meets it.
#pragma once

#include "reminders/ComTarefas.h"
#include "reminders/frmPopup.h"
#include "reminders/frmTarefas.h"

#include <QTest>

// To the end of the rise, without waiting for its timer.
inline void Subir(frmPopup &popup)
{
    while (popup.TimerUp.Enabled())
        Disparar(popup.TimerUp);
}

// To the end of the sink, after which the notice is gone.
inline void Descer(frmPopup &popup)
{
    Subir(popup);
    while (popup.TimerDown.Enabled())
        Disparar(popup.TimerDown);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A click on the notice, and on the alert card that it opens what the caller says.
inline void Clicar(QWidget &onde, const std::function<void(frmTarefas &)> &no_cartao)
{
    accoes::Quando_Abrir<frmTarefas>(no_cartao);
    QTest::mouseClick(&onde, Qt::LeftButton);
}
inline void Clicar_E_Confirmar(frmPopup &popup)
{
    Clicar(popup, [](frmTarefas &cartao) { cartao.cmdImprimir->click(); });
}
