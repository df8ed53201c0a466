// Keeps a window disabled for as long as it lives: while a modal form stands in front of it.
#pragma once

#include <QWidget>

class DisabledWindow
{
public:
    explicit DisabledWindow(QWidget &window) : window_(window) { window_.setEnabled(false); }
    ~DisabledWindow() { window_.setEnabled(true); }
    DisabledWindow(const DisabledWindow &) = delete;
    DisabledWindow &operator=(const DisabledWindow &) = delete;

private:
    QWidget &window_;
};
