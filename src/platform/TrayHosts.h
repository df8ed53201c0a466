// The hosts that show the icons of the notification area. They come and go while the program runs and tell so
// themselves, so nothing is asked in between. Linux desktops have two kinds: the owner of a selection of the
// X server, and the host that the watcher on the session bus knows. Windows has one, which counts as the
// latter.
#pragma once

#include "platform/TrayHostsWatch.h"

#include <QObject>

class TrayHosts final : public QObject
{
    Q_OBJECT
public:
    explicit TrayHosts(QObject *parent = nullptr);
    ~TrayHosts() override;

    // Looks for the first time, which takes a quarter of a second at most, and listens from then on. Further
    // calls do nothing.
    void watch();

    bool onSelection() const;
    bool onBus() const;

Q_SIGNALS:
    void changed();

private:
    std::unique_ptr<TrayHostsWatch> watch_; // null until it is asked for
};
