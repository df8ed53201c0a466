// The real notification area.
#pragma once

#include "platform/Tray.h"
#include "platform/TrayHosts.h"

#include <memory>
#include <QIcon>
#include <QPointer>
#include <QString>

class QSystemTrayIcon;

class DesktopTray final : public Tray
{
    Q_OBJECT
public:
    DesktopTray(QIcon ordinary, QIcon locked, QObject *parent = nullptr);
    ~DesktopTray() override;

    void add(Look look, const QString &tip, QMenu *menu) override;
    void remove(Look look) override;
    bool hasHost() const override { return hosted_; }

private:
    void hostsChanged();
    bool hostOfItsKind() const;
    void show();

    QIcon ordinary_;
    QIcon locked_;
    Look look_ = Look::Picture1;
    QString tip_;
    QPointer<QMenu> menu_;
    bool wanted_ = false; // the icon is added
    bool hosted_ = false;
    bool onBus_ = false; // the kind of the icon, once there is one
    TrayHosts hosts_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};
