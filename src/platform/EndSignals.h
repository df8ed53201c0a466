// What the system sends a process to end it, outside of the desktop's session. On Linux these are the signals
// TERM, INT and HUP: one that comes a second time ends the process at once, by its own force, and those that
// were ignored when the process began stay ignored. On Windows it is the closing of a hidden window of the
// class "MorvexEnd", whose title is the program's folder: the installer closes it, and so does the system
// when it asks processes to go.
#pragma once

#include <functional>
#include <memory>

// One for a process, made after the application object.
class EndSignals
{
public:
    // The work is done in the event loop.
    explicit EndSignals(std::function<void()> ending);
    ~EndSignals();
    EndSignals(const EndSignals &) = delete;
    EndSignals &operator=(const EndSignals &) = delete;

private:
    class Taken;
    std::unique_ptr<Taken> taken_;
};
