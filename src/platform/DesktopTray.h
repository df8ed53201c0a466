// The real notification area, of either kind that Linux desktops have, or that of Windows.
#pragma once

#include "platform/Tray.h"

#include <QIcon>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <memory>

class QSystemTrayIcon;

class DesktopTray final : public Tray
{
    Q_OBJECT
public:
    DesktopTray(QIcon ordinary, QIcon locked, QObject *parent = nullptr);
    ~DesktopTray() override;

    void add(Look look, const QString &tip, QMenu *menu) override;
    void remove(Look look) override;

private:
    void showWhenHosted();

    QIcon ordinary_;
    QIcon locked_;
    Look look_ = Look::Picture1;
    QString tip_;
    QPointer<QMenu> menu_;
    QTimer waitForHost_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};
