#include "platform/DarkFrames.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <windows.h>

#include <dwmapi.h> // knows nothing without what stands before it

DarkFrames::DarkFrames(Draw draw, QObject *parent) : QObject(parent), draw_(std::move(draw))
{
    qGuiApp->installEventFilter(this);
}

// A system that is too old for it refuses, and its frames stay as they are.
DarkFrames::Draw DarkFrames::systemDraw()
{
    return [](WId window, bool dark) {
        constexpr DWORD darkFrame = 20; // its name came later than the compiler's headers
        constexpr DWORD darkFrameOfOld = 19;
        const BOOL wanted = dark ? TRUE : FALSE;
        auto *const handle = reinterpret_cast<HWND>(window); // NOLINT: the system's own word
        if (DwmSetWindowAttribute(handle, darkFrame, &wanted, sizeof wanted) != S_OK)
            DwmSetWindowAttribute(handle, darkFrameOfOld, &wanted, sizeof wanted);
    };
}

void DarkFrames::setDark(bool dark)
{
    if (dark_ == dark) return;
    dark_ = dark;
    for (const QWindow *window : QGuiApplication::topLevelWindows())
        if (window->handle() != nullptr) draw_(window->winId(), dark);
}

// A window is light by nature.
bool DarkFrames::eventFilter(QObject *watched, QEvent *event)
{
    if (!dark_ || event->type() != QEvent::PlatformSurface) return false;
    const auto *window = qobject_cast<const QWindow *>(watched);
    const bool made = static_cast<const QPlatformSurfaceEvent *>(event)->surfaceEventType() ==
                      QPlatformSurfaceEvent::SurfaceCreated;
    if (made && window != nullptr && window->isTopLevel()) draw_(window->winId(), true);
    return false;
}
