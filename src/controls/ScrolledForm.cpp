#include "controls/ScrolledForm.h"

#include "controls/Scale.h"

#include <algorithm>
#include <QBoxLayout>
#include <QEvent>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace
{
constexpr QSize usualFrame{8, 32}; // pixels; a window that was never shown does not know its own

void release(QWidget &form)
{
    form.setMinimumSize(0, 0);
    form.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

QSize leastSize(const QWidget &form)
{
    const QSize least = form.minimumSize();
    return form.layout() == nullptr ? least : least.expandedTo(form.layout()->totalMinimumSize());
}

// To another parent, where it stands as it did before.
void moveTo(QWidget &parent, QWidget &child)
{
    const QRect place = child.geometry();
    child.setParent(&parent);
    child.setGeometry(place);
}
} // namespace

void ScrolledForm::keepOnScreen(QWidget &form)
{
    if (!form.windowFlags().testFlag(Qt::FramelessWindowHint)) new ScrolledForm(form);
}

ScrolledForm::ScrolledForm(QWidget &form) : QObject(&form), form_(form) { form.installEventFilter(this); }

bool ScrolledForm::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Show && !event->spontaneous()) fit();
    if (event->type() == QEvent::Resize && form_.isVisible()) area_ == nullptr ? fit() : followFixedHeight();
    return false;
}

QSize ScrolledForm::room() const
{
    const QSize frame = form_.frameGeometry().size() - form_.size();
    return form_.screen()->availableGeometry().size() - (frame.isNull() ? usualFrame : frame);
}

void ScrolledForm::fit()
{
    const QSize most = room();
    const QSize least = leastSize(form_);
    if (area_ == nullptr && (least.width() > most.width() || least.height() > most.height())) wrap();
    if (area_ != nullptr || scale::factor() != 1) moveOntoScreen();
}

void ScrolledForm::wrap()
{
    QWidget *const focus = form_.focusWidget();
    const QSize before = form_.size();
    area_ = new QScrollArea(&form_);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidgetResizable(true);
    area_->setFocusPolicy(Qt::NoFocus);
    if (qobject_cast<QMainWindow *>(&form_) != nullptr)
        wrapCentre();
    else
        wrapChildren();
    area_->show(); // the form shows its children before it is told that it is shown itself
    release(form_);
    shrinkToRoom(before);
    if (focus != nullptr) focus->setFocus();
}

void ScrolledForm::wrapCentre()
{
    auto &window = static_cast<QMainWindow &>(form_);
    area_->setWidget(window.takeCentralWidget());
    window.setCentralWidget(area_);
}

void ScrolledForm::wrapChildren()
{
    auto *content = new QWidget;
    if (form_.layout() != nullptr) {
        content->setLayout(form_.layout());
    } else {
        content->setFixedSize(form_.size());
        for (QWidget *child : form_.findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
            if (!child->isWindow() && child != area_) moveTo(*content, *child);
    }
    area_->setWidget(content);
    auto *around = new QVBoxLayout(&form_);
    around->setContentsMargins({});
    around->setSizeConstraint(QLayout::SetNoConstraint);
    around->addWidget(area_);
}

// The form was fixed to another height, as it is where it shows more or less than before: what scrolls takes
// it on. Of the two limits the lower one has come by now.
void ScrolledForm::followFixedHeight()
{
    const int fixed = form_.minimumHeight();
    if (fixed == 0 || qobject_cast<QMainWindow *>(&form_) != nullptr) return;
    area_->widget()->setFixedHeight(fixed);
    release(form_);
    shrinkToRoom({});
    moveOntoScreen();
}

// What outgrows the screen in one direction keeps its size in the other: at its least it would scroll both
// ways, for a text that is broken into lines is taller in a narrow place than its least size says.
void ScrolledForm::shrinkToRoom(QSize least)
{
    const QWidget &content = *area_->widget();
    const QSize above(0, form_.layout()->totalMinimumSize().height() - area_->minimumSizeHint().height());
    QSize wanted = content.minimumSizeHint().expandedTo(content.minimumSize()) + above;
    const QSize most = room();
    const int bar = area_->verticalScrollBar()->sizeHint().width();
    const bool isHigh = wanted.height() > most.height();
    const bool isWide = wanted.width() > most.width();
    wanted = wanted.expandedTo(least);
    if (isHigh) wanted.rwidth() += bar;
    if (isWide) wanted.rheight() += bar;
    form_.resize(wanted.boundedTo(most));
}

void ScrolledForm::moveOntoScreen()
{
    const QRect screen = form_.screen()->availableGeometry();
    const QSize most = room();
    if (form_.width() > most.width() || form_.height() > most.height())
        form_.resize(form_.size().boundedTo(most));
    if (!form_.testAttribute(Qt::WA_Moved)) return;
    const QSize outer = form_.size() + (screen.size() - most);
    const auto inside = [](int place, int first, int length, int size) {
        return std::max(first, std::min(place, first + length - size));
    };
    form_.move(inside(form_.x(), screen.x(), screen.width(), outer.width()),
               inside(form_.y(), screen.y(), screen.height(), outer.height()));
}
