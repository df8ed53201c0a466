#include "controls/RisingCard.h"

#include "controls/Contrast.h"
#include "controls/Units.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

namespace
{
// All in twips.
constexpr int step = 50;
constexpr int below = 10; // from the edge of the screen to the top of a card that is out of sight
constexpr int rightMargin = 100;
constexpr int hiddenPart = 10; // of the height: the rise ends once less of it than this is below the edge

constexpr int intervalOfRise = 10;
constexpr int intervalAfterRise = 3000;

constexpr unsigned colourText = 0x302820;
} // namespace

RisingCard::RisingCard(QWidget &mainWindow, int timeout)
    : QFrame(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      TimerTimeout(timeout, false),
      mainWindow_(mainWindow)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette letters = palette();
    setGround(letters, colour(colourWhite));
    letters.setColor(QPalette::WindowText, colour(colourText));
    setPalette(letters);
    TimerTimeout.setTimerType(Qt::PreciseTimer);
    connect(&TimerUp, &QTimer::timeout, this, &RisingCard::TimerUp_Timer);
    connect(&TimerDown, &QTimer::timeout, this, &RisingCard::TimerDown_Timer);
    connect(&TimerTimeout, &QTimer::timeout, this, &RisingCard::sink);
}

void RisingCard::rise()
{
    screen_ = QGuiApplication::primaryScreen()->geometry();
    left_ = twips(screen_.width()) - (twips(width()) + rightMargin);
    moveTo(twips(screen_.height()) + below);
    TimerUp.setEnabled(true);
}

void RisingCard::stayUp()
{
    if (!TimerDown.Enabled()) return;
    TimerDown.setEnabled(false);
    if (risen()) return;
    TimerUp.setInterval(intervalOfRise);
    TimerUp.setEnabled(true);
}

bool RisingCard::risen() const { return twips(screen_.height()) - (twips(height()) - hiddenPart) >= top_; }

void RisingCard::TimerUp_Timer()
{
    moveTo(top_ - step);
    if (!risen()) return;
    TimerUp.setEnabled(false);
    TimerUp.setInterval(intervalAfterRise);
    stayOnTop();
}

// The two timers undo each other's steps, so the sink has to wait for the end of the rise.
void RisingCard::TimerDown_Timer()
{
    if (TimerUp.Enabled()) return;
    moveTo(top_ + step);
    if (twips(screen_.height()) + below > top_) return;
    TimerDown.setEnabled(false);
    mainWindow_.setEnabled(true);
    close();
}

void RisingCard::moveTo(int top)
{
    top_ = top;
    move(screen_.left() + pixels(left_), screen_.top() + pixels(top_));
}

// The flag of the widget would hide a card that is shown; that of its native window leaves it where it is.
void RisingCard::stayOnTop()
{
    if (QWindow *window = windowHandle())
        window->setFlag(Qt::WindowStaysOnTopHint);
    else
        setWindowFlag(Qt::WindowStaysOnTopHint);
}

void RisingCard::mouseReleaseEvent(QMouseEvent *event)
{
    const bool inside = rect().contains(event->position().toPoint());
    if (inside && event->button() == Qt::LeftButton) Q_EMIT Click();
}

// The end of the sink closes it. What the window system would close it for is no answer to its notice.
void RisingCard::closeEvent(QCloseEvent *event)
{
    if (event->spontaneous()) return event->ignore();
    QFrame::closeEvent(event);
    Q_EMIT Unloaded();
}
