// The end of the process, as a service: the program ends in few places, and a test must survive them.
#pragma once

#include <functional>

class MessageBoxes;

class Process
{
public:
    virtual ~Process() = default;

    // Ends the process at once. Nothing is asked and nothing is saved.
    virtual void end() = 0;
};

class OwnProcess final : public Process
{
public:
    void end() override;
};

// For the handlers in which a failure ends the process: the error box comes first. That a server went away is
// raised instead: it comes back, and the process waits for it.
void endOnFailure(MessageBoxes &boxes, Process &process, const std::function<void()> &handler);
