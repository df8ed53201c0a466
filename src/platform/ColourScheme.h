// Whether the desktop asks for dark windows, as its portal tells it.
#pragma once

#include <QObject>

class QDBusPendingCallWatcher;
class QDBusVariant;

class ColourScheme final : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    // Asks, and listens from then on; never waits. Without a bus or a portal nothing is ever told.
    void watch();

Q_SIGNALS:
    void darkTold(bool dark);

private:
    Q_SLOT void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);
    void answered(QDBusPendingCallWatcher *call);
    void tell(const QDBusVariant &value);
};
