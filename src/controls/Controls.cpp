#include "controls/Controls.h"

#include "platform/Failure.h"

#include <QWidget>

void raiseMissingControl(const QObject &form, const QString &name)
{
    throw Failure(Failure::ItemNotFound, form.objectName(), QStringLiteral("No control named %1").arg(name));
}

void keepPlaceWhenHidden(QWidget &control)
{
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}
