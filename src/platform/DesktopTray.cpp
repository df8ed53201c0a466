#include "platform/DesktopTray.h"

#include <QMenu>
#include <QSystemTrayIcon>

DesktopTray::DesktopTray(QIcon ordinary, QIcon locked, QObject *parent)
    : Tray(parent), ordinary_(std::move(ordinary)), locked_(std::move(locked))
{
    connect(&hosts_, &TrayHosts::changed, this, &DesktopTray::hostsChanged);
}

DesktopTray::~DesktopTray() = default;

void DesktopTray::add(Look look, const QString &tip, QMenu *menu)
{
    look_ = look;
    tip_ = tip.left(tipLength);
    menu_ = menu;
    wanted_ = true;
    hosts_.watch();
    if (hosted_) show();
}

void DesktopTray::remove(Look look)
{
    if (look != look_) return;
    wanted_ = false;
    if (icon_) icon_->hide();
}

void DesktopTray::hostsChanged()
{
    const bool there = hostOfItsKind();
    if (hosted_ == there) return;
    hosted_ = there;
    if (!there) {
        Q_EMIT hostGone();
        return;
    }
    if (wanted_) show();
    Q_EMIT hostCame();
}

// The toolkit decides at its first look, and for good, which kind of notification area there is; it prefers
// the bus. So it is asked only once some host has shown itself, and a host of the other kind is none from
// then on.
bool DesktopTray::hostOfItsKind() const
{
    if (!icon_) return hosts_.onBus() || hosts_.onSelection();
    return onBus_ ? hosts_.onBus() : hosts_.onSelection();
}

void DesktopTray::show()
{
    if (!icon_) {
        onBus_ = hosts_.onBus();
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
