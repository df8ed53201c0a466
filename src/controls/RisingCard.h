// A small card that rises out of the bottom edge of the primary screen at the right, stays there above all
// other windows and sinks out of sight again. It never takes the keyboard; Enter and Space reach it through
// whatever window of the program has it. Several forms move in this way; what one shows, sounds, stops and
// restarts, and what a click on it does, is its own matter.
#pragma once

#include "platform/Timer.h"

#include <QFrame>

class RisingCard : public QFrame
{
    Q_OBJECT
public:
    // The main window is enabled again when the card has sunk. The time-out in milliseconds is the interval
    // of TimerTimeout, which runs only for a form that enables it.
    RisingCard(QWidget &mainWindow, int timeout);

    // Places the card out of sight below the edge and begins the rise; to be called at the end of the form's
    // own loading, when the card has its size. Taskbars are not taken into account.
    void rise();

    // Begins the sink. While the rise is still under way the card waits for its end.
    void sink() { TimerDown.setEnabled(true); }

    // A card that is sinking, or about to, turns round and rises from where it is: it has something new to
    // show. Its time-out is the form's matter.
    void stayUp();

    // The click, by whoever cannot use the mouse on it. A card that is not to be seen, or on its way out,
    // takes none. Whether it took it.
    bool answer();

    // Has a screen reader say the words, which become the card's name. The same words again are not said
    // twice.
    void announce(const QString &words);

    // Enter and Space, unless another control would use the key: while the main window is disabled that is
    // only a field in which text is being written.
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Twips from the top and left edges of the primary screen.
    int Top() const { return top_; }
    int Left() const { return left_; }

    Timer TimerUp{10, false};
    Timer TimerDown{10, false};
    Timer TimerTimeout; // lets the card sink by itself; exact to the millisecond

Q_SIGNALS:
    void Click();
    // The card has gone for good, by the end of the sink or because the program closed it. The window system
    // cannot.
    void Unloaded();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    bool risen() const;
    bool keyHasAnotherUse() const;
    void TimerUp_Timer();
    void TimerDown_Timer();
    void moveTo(int top);
    void stayOnTop();

    QWidget &mainWindow_;
    QRect screen_; // pixels, as it was at the beginning of the rise
    int top_ = 0;
    int left_ = 0;
};
