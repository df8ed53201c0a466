#include "controls/RisingCard.h"

#include "controls/Contrast.h"
#include "controls/Units.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
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

// A screen reader speaks an object of this role by itself when it shows or its name changes.
QAccessibleInterface *alertOf(const QString &, QObject *object)
{
    auto *card = qobject_cast<RisingCard *>(object);
    return card == nullptr ? nullptr : new QAccessibleWidget(card, QAccessible::AlertMessage);
}

bool isAnswer(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress) return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && !key.isAutoRepeat();
    return plain && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space);
}
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
    qApp->installEventFilter(this);
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(alertOf), true);
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

bool RisingCard::answer()
{
    if (!isVisible() || TimerDown.Enabled()) return false;
    Q_EMIT Click();
    return true;
}

void RisingCard::announce(const QString &words)
{
    if (accessibleName() == words) return;
    setAccessibleName(words);
    for (const QAccessible::Event what : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(this, what);
        QAccessible::updateAccessibility(&event);
    }
}

bool RisingCard::eventFilter(QObject *watched, QEvent *event)
{
    if (isAnswer(*event) && !keyHasAnotherUse() && answer()) return true;
    return QFrame::eventFilter(watched, event);
}

bool RisingCard::keyHasAnotherUse() const
{
    if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr)
        return true;
    const QWidget *focus = QApplication::focusWidget();
    if (focus == nullptr || !focus->isEnabled()) return false;
    return mainWindow_.isEnabled() || focus->testAttribute(Qt::WA_InputMethodEnabled);
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
    Q_EMIT Unloaded();
}
