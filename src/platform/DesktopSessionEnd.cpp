#include "platform/DesktopSessionEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

namespace
{
class DesktopLogout final : public SessionEnd::Logout
{
public:
    explicit DesktopLogout(QSessionManager &manager) : manager_(manager) {}

    bool mayAsk() override { return manager_.allowsInteraction(); }
    void refuse() override { manager_.cancel(); }

private:
    QSessionManager &manager_;
};
} // namespace

DesktopSessionEnd::DesktopSessionEnd(QObject *parent)
    : SessionEnd(parent), signals_([this] { Q_EMIT ending(); })
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &DesktopSessionEnd::commitData,
            Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

DesktopSessionEnd::~DesktopSessionEnd() = default;

void DesktopSessionEnd::commitData(QSessionManager &manager)
{
    DesktopLogout logout(manager);
    Q_EMIT loggingOut(logout);
    manager.release();
}

// Once all have agreed, the desktop tells the application to quit. By itself that would close the windows one
// by one, and the main window does not let itself be closed.
bool DesktopSessionEnd::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != qGuiApp || event->type() != QEvent::Quit) return false;
    Q_EMIT ending();
    return true;
}
