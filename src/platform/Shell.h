// Hands an address or a file to the desktop's default program.
#pragma once

class QString;

class Shell
{
public:
    virtual ~Shell() = default;

    // Opens a web or mail address or a file with the program that the user chose for it. Does not wait, tells
    // nothing, and never interprets the address: no command line is involved.
    virtual void open(const QString &target) = 0;
};

class DesktopShell final : public Shell
{
public:
    void open(const QString &target) override;
};
