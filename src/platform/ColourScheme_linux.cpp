// As the desktop's portal tells it.
#include "platform/ColourScheme.h"
#include "platform/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace
{
const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString settings = u"org.freedesktop.portal.Settings"_s;
const QString space_ = u"org.freedesktop.appearance"_s;
const QString key_ = u"color-scheme"_s;

constexpr uint dark = 1; // 0 is no preference, 2 is light
} // namespace

class PortalSetting final : public QObject
{
    Q_OBJECT
public:
    PortalSetting()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        // With the portal's name the connection would first wait for the name's owner.
        bus.connect(QString(), path, settings, u"SettingChanged"_s, this,
                    SLOT(settingChanged(QString, QString, QDBusVariant)));
        QDBusMessage question = QDBusMessage::createMethodCall(portal, path, settings, u"Read"_s);
        question << space_ << key_;
        auto *call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(call, &QDBusPendingCallWatcher::finished, this, &PortalSetting::answered);
    }

Q_SIGNALS:
    void darkTold(bool dark);

private:
    Q_SLOT void settingChanged(const QString &space, const QString &key, const QDBusVariant &value)
    {
        if (space == space_ && key == key_) tell(value);
    }

    void answered(QDBusPendingCallWatcher *call)
    {
        const QDBusPendingReply<QDBusVariant> reply = *call;
        if (!reply.isError()) tell(reply.value());
        call->deleteLater();
    }

    // The answer to a question is wrapped once more than the value of a signal.
    void tell(const QDBusVariant &value)
    {
        QVariant scheme = value.variant();
        while (scheme.canConvert<QDBusVariant>())
            scheme = scheme.value<QDBusVariant>().variant();
        Q_EMIT darkTold(scheme.toUInt() == dark);
    }
};

bool ColourScheme::wantsOwnColours(bool plain) { return plain; }

void ColourScheme::watch()
{
    if (!sessionBusIsThere()) return;
    auto setting = std::make_unique<PortalSetting>();
    connect(setting.get(), &PortalSetting::darkTold, this, &ColourScheme::darkTold);
    setting_ = std::move(setting);
}

#include "ColourScheme_linux.moc"
