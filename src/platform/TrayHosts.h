// The hosts that show the icons of the notification area, of either kind that Linux desktops have: the owner
// of a selection of the X server, and the host that the watcher on the session bus knows. They come and go
// while the program runs; both kinds tell so themselves, so nothing is asked in between.
#pragma once

#include <cstdint>
#include <QAbstractNativeEventFilter>
#include <QObject>

class QDBusMessage;

class TrayHosts final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    using QObject::QObject;

    // Looks for the first time, which takes a quarter of a second at most, and listens from then on. Further
    // calls do nothing.
    void watch();

    bool onSelection() const { return owner_ != 0; }
    bool onBus() const { return onBus_; }

Q_SIGNALS:
    void changed();

private:
    Q_SLOT void askBus();
    bool nativeEventFilter(const QByteArray &type, void *message, qintptr *result) override;
    void watchSelection();
    void lookAtSelection();
    void watchBus();
    void busAnswered(const QDBusMessage &reply);

    bool watching_ = false;
    std::uint32_t selection_ = 0; // the two names, as the X server knows them
    std::uint32_t manager_ = 0;
    std::uint32_t owner_ = 0; // the window that holds the selection; 0: none
    bool onBus_ = false;
    int lastQuestion_ = 0; // an answer to an earlier one is out of date
};
