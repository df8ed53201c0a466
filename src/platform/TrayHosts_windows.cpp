#include "platform/TrayHostsWatch.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <utility>
#include <windows.h>

namespace
{
// The task bar holds the notification area. It is there from the beginning of a session and comes anew when
// the desktop's own program was started again, which it tells every window.
class TaskbarWatch final : public QObject, public TrayHostsWatch, private QAbstractNativeEventFilter
{
public:
    explicit TaskbarWatch(std::function<void()> changed)
        : changed_(std::move(changed)), barMade_(RegisterWindowMessageW(L"TaskbarCreated"))
    {
    }

    void begin() override
    {
        qGuiApp->installNativeEventFilter(this);
        look();
    }
    bool onSelection() const override { return false; }
    bool onBus() const override { return there_; }

private:
    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        // Behind the toolkit's own handling, which puts its icon there anew.
        if (static_cast<const MSG *>(message)->message == barMade_)
            QMetaObject::invokeMethod(this, &TaskbarWatch::look, Qt::QueuedConnection);
        return false;
    }

    void look()
    {
        const bool there = FindWindowW(L"Shell_TrayWnd", nullptr) != nullptr;
        if (std::exchange(there_, there) != there) changed_();
    }

    std::function<void()> changed_;
    UINT barMade_;
    bool there_ = false;
};
} // namespace

std::unique_ptr<TrayHostsWatch> TrayHostsWatch::ofThisSystem(std::function<void()> changed)
{
    return std::make_unique<TaskbarWatch>(std::move(changed));
}
