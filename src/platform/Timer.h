// A timer that is switched by an Enabled flag. Setting the flag while it is set already does not begin the
// interval anew; setting it false and then true does.
#pragma once

#include <QTimer>

class Timer : public QTimer
{
public:
    Timer(int milliseconds, bool enabled)
    {
        setInterval(milliseconds);
        setEnabled(enabled);
    }

    bool Enabled() const { return isActive(); }
    void setEnabled(bool enabled)
    {
        if (!enabled)
            stop();
        else if (!isActive())
            start();
    }
};
