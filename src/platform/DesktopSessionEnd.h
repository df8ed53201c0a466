// The real end from outside: the desktop's session manager, and on Unix the signals TERM, INT and HUP. A
// signal that comes a second time ends the process at once, by its own force. Signals that were ignored when
// the process began stay ignored.
#pragma once

#include "platform/SessionEnd.h"

#include <memory>

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

    class Signals;
    std::unique_ptr<Signals> signals_;
};
