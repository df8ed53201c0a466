#include "platform/Process.h"

#include "platform/Failure.h"
#include "platform/MessageBoxes.h"

#include <cstdio>
#include <cstdlib>
#include <QCoreApplication>

void OwnProcess::end()
{
    // Lets what was just asked of the desktop (the tray icon's removal) leave the process, then goes without
    // destructors: a name look-up under way would hold them up for seconds.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    std::fflush(nullptr);
    std::_Exit(0);
}

void endOnFailure(MessageBoxes &boxes, Process &process, const std::function<void()> &handler)
{
    onFailure(handler, [&](const Failure &failure) {
        if (failure.kind() == Failure::Kind::ServerLost) throw failure;
        boxes.showError(failure);
        process.end();
    });
}
