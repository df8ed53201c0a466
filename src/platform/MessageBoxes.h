// Message boxes, by the numbers that the program's messages carry.
#pragma once

#include <functional>

class Failure;
class QString;
class QWidget;

// Flags of a box: one icon and one set of buttons.
namespace box
{
constexpr int ok = 0;
constexpr int yesNo = 4;
constexpr int retryLeave = 5; // to try again, or to leave the program
constexpr int stop = 16;
constexpr int question = 32;
constexpr int exclamation = 48;
constexpr int information = 64;
} // namespace box

// Answers of a box.
namespace answer
{
constexpr int ok = 1;
constexpr int leave = 2;
constexpr int retry = 4;
constexpr int yes = 6;
constexpr int no = 7;
} // namespace answer

class MessageBoxes
{
public:
    virtual ~MessageBoxes() = default;

    // Shows the box in front of the owner (which may be null), waits, and returns the answer. A yes/no box
    // that is closed without an answer counts as no, and one with a way out as the way out.
    virtual int show(const QString &text, int flags, const QString &title, QWidget *owner) = 0;

    // A box without a title of its own bears the program's name.
    int show(const QString &text, int flags, QWidget *owner);

    // The error box of a failure that nobody caught.
    virtual void showError(const Failure &failure) = 0;
};

class DesktopMessageBoxes final : public MessageBoxes
{
public:
    DesktopMessageBoxes();

    // Where the words of errors find the name of the active language. Until it is told, and while none is
    // active, they are in the desktop's.
    void setLanguage(std::function<QString()> language);

    int show(const QString &text, int flags, const QString &title, QWidget *owner) override;
    void showError(const Failure &failure) override;

private:
    std::function<QString()> language_;
};
