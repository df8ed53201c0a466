#include "platform/DesktopTray.h"

#include "platform/SessionBus.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QMenu>
#include <QSystemTrayIcon>
#ifdef Q_OS_LINUX
#include <xcb/xcb.h>
#endif

using namespace std::chrono_literals;

namespace
{
// The newer kind of host announces itself on the session bus.
bool busHostIsThere()
{
    if (!sessionBusIsThere()) return false;
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << QStringLiteral("org.kde.StatusNotifierWatcher")
             << QStringLiteral("IsStatusNotifierHostRegistered");
    constexpr int patience = 250; // ms: a bus that hangs must not stop the window
    const QDBusMessage reply = QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
           reply.arguments().constFirst().value<QDBusVariant>().variant().toBool();
}

#ifdef Q_OS_LINUX
struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};

// The older kind of host owns a selection of the X server.
bool selectionHostIsThere()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11 == nullptr ? nullptr : x11->connection();
    if (connection == nullptr) return false; // a screen of another kind
    static constexpr char name[] = "_NET_SYSTEM_TRAY_S0";
    const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, false, sizeof name - 1, name), nullptr));
    if (atom == nullptr) return false;
    const std::unique_ptr<xcb_get_selection_owner_reply_t, FreeReply> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner != nullptr && owner->owner != XCB_WINDOW_NONE;
}

// The toolkit decides at its first look, and for good, which kind of notification area there is. So it is
// asked only once some host has shown itself.
bool hostIsThere() { return selectionHostIsThere() || busHostIsThere(); }
#else
bool hostIsThere() { return QSystemTrayIcon::isSystemTrayAvailable(); }
#endif
} // namespace

DesktopTray::DesktopTray(QIcon ordinary, QIcon locked, QObject *parent)
    : Tray(parent), ordinary_(std::move(ordinary)), locked_(std::move(locked))
{
    waitForHost_.setInterval(1s);
    connect(&waitForHost_, &QTimer::timeout, this, &DesktopTray::showWhenHosted);
}

DesktopTray::~DesktopTray() = default;

void DesktopTray::add(Look look, const QString &tip, QMenu *menu)
{
    look_ = look;
    tip_ = tip.left(tipLength);
    menu_ = menu;
    waitForHost_.start();
    showWhenHosted();
}

void DesktopTray::remove(Look look)
{
    if (look != look_) return;
    waitForHost_.stop();
    if (icon_) icon_->hide();
}

void DesktopTray::showWhenHosted()
{
    if (!icon_ && !hostIsThere()) return;
    waitForHost_.stop();
    if (!icon_) {
        icon_ = std::make_unique<QSystemTrayIcon>();
        connect(icon_.get(), &QSystemTrayIcon::activated, this,
                [this](QSystemTrayIcon::ActivationReason reason) {
                    if (reason == QSystemTrayIcon::Trigger) Q_EMIT leftButtonDown(look_);
                });
    }
    if (icon_->contextMenu() != menu_ && menu_ != nullptr) {
        icon_->setContextMenu(menu_);
        connect(menu_, &QMenu::aboutToShow, this, [this] { Q_EMIT menuAboutToOpen(look_); });
    }
    icon_->setIcon(look_ == Look::Picture1 ? ordinary_ : locked_);
    icon_->setToolTip(tip_);
    icon_->show();
}
