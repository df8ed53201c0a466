#include "platform/Controls.h"

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

QString withoutMnemonic(const QString &caption)
{
    QString plain;
    plain.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) ++i; // "&&" stands for the sign itself
        plain += caption[i];
    }
    return plain;
}
