#include "platform/TrayHosts.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <utility>
#include <windows.h>

// The task bar holds the notification area. It is there from the beginning of a session and comes anew when
// the desktop's own program was started again, which it tells every window.
class TrayHosts::Watch final : public QObject, private QAbstractNativeEventFilter
{
public:
    explicit Watch(TrayHosts &hosts) : hosts_(hosts), barMade_(RegisterWindowMessageW(L"TaskbarCreated")) {}

    void begin()
    {
        qGuiApp->installNativeEventFilter(this);
        look();
    }
    bool onSelection() const { return false; }
    bool onBus() const { return there_; }

private:
    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override
    {
        // Behind the toolkit's own handling, which puts its icon there anew.
        if (static_cast<const MSG *>(message)->message == barMade_)
            QMetaObject::invokeMethod(this, &Watch::look, Qt::QueuedConnection);
        return false;
    }

    void look()
    {
        const bool there = FindWindowW(L"Shell_TrayWnd", nullptr) != nullptr;
        if (std::exchange(there_, there) != there) Q_EMIT hosts_.changed();
    }

    TrayHosts &hosts_;
    UINT barMade_;
    bool there_ = false;
};

TrayHosts::TrayHosts(QObject *parent) : QObject(parent) {}
TrayHosts::~TrayHosts() = default;

void TrayHosts::watch()
{
    if (watch_) return;
    watch_ = std::make_unique<Watch>(*this);
    watch_->begin();
}

bool TrayHosts::onSelection() const { return watch_ && watch_->onSelection(); }
bool TrayHosts::onBus() const { return watch_ && watch_->onBus(); }
