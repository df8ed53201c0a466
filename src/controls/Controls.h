// Helpers over the named controls of a form.
#pragma once

#include "platform/Caption.h"

#include <QObject>
#include <QString>

class QWidget;

[[noreturn]] void raiseMissingControl(const QObject &form, const QString &name);

// The control of that name on the form. A form without it is a mistake of the program: raises Failure.
template<class Control> Control &control(const QObject &form, const QString &name)
{
    auto *found = form.findChild<Control *>(name);
    if (found == nullptr) raiseMissingControl(form, name);
    return *found;
}

// Keeps the control's place on its form while it is hidden, so that it can be painted at once when it is
// shown.
void keepPlaceWhenHidden(QWidget &control);
