// Hands an address or a file to the desktop's default program, and opens the desktop's own settings.
#pragma once

class QString;

class Shell
{
public:
    virtual ~Shell() = default;

    // Opens a web or mail address or a file with the program that the user chose for it. Does not wait, tells
    // nothing, and never interprets the address: no command line is involved.
    virtual void open(const QString &target) = 0;

    // Opens the desktop's settings of date and time. Does not wait; where the desktop has none, nothing
    // happens.
    virtual void openDateAndTimeSettings() = 0;

    // Starts the user's mail program, without a letter in it. Does not wait, tells nothing.
    virtual void openMailProgram() = 0;
};

class DesktopShell final : public Shell
{
public:
    void open(const QString &target) override;
    void openDateAndTimeSettings() override;
    void openMailProgram() override;
};
