// Keeps a window disabled for as long as it lives: while a modal form stands in front of it. The keyboard
// then goes back to where it was.
#pragma once

#include <QPointer>
#include <QWidget>

class DisabledWindow
{
public:
    explicit DisabledWindow(QWidget &window) : window_(window), focus_(window.focusWidget())
    {
        disable(window_);
    }
    ~DisabledWindow()
    {
        window_.setEnabled(true);
        giveFocusBack();
    }
    DisabledWindow(const DisabledWindow &) = delete;
    DisabledWindow &operator=(const DisabledWindow &) = delete;

    // Disables the window alone. The toolkit would disable along with it the windows that stand in front of
    // it as its children, and a form that is open there could no longer be answered.
    static void disable(QWidget &window)
    {
        QList<QWidget *> inFront;
        for (QWidget *child : window.findChildren<QWidget *>())
            if (child->isWindow() && child->isEnabled()) inFront << child;
        window.setEnabled(false);
        for (QWidget *child : inFront)
            child->setEnabled(true);
    }

private:
    // A disabled control loses the keyboard for good, and a person without a mouse would have to begin anew.
    void giveFocusBack() const
    {
        const bool wanted = focus_ != nullptr && window_.focusWidget() == nullptr;
        if (wanted && focus_->isVisible()) focus_->setFocus(Qt::ActiveWindowFocusReason);
    }

    QWidget &window_;
    QPointer<QWidget> focus_;
};
