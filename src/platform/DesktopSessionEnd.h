// The real end from outside: the desktop's session manager, and what the system sends a process to end it.
#pragma once

#include "platform/EndSignals.h"
#include "platform/SessionEnd.h"

class QSessionManager;

// One for a process, made after the application object.
class DesktopSessionEnd final : public SessionEnd
{
    Q_OBJECT
public:
    explicit DesktopSessionEnd(QObject *parent = nullptr);
    ~DesktopSessionEnd() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void commitData(QSessionManager &manager);

    EndSignals signals_;
};
