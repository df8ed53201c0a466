// Whoever looks for the hosts of the notification area on one system.
#pragma once

#include <functional>
#include <memory>

class TrayHostsWatch
{
public:
    virtual ~TrayHostsWatch() = default;

    // Looks for the first time and listens from then on.
    virtual void begin() = 0;

    virtual bool onSelection() const = 0;
    virtual bool onBus() const = 0;

    // Calls what is given whenever one of these has changed.
    static std::unique_ptr<TrayHostsWatch> ofThisSystem(std::function<void()> changed);
};
