#include "platform/MessageBoxes.h"

#include "platform/Failure.h"

#include <QApplication>
#include <QMessageBox>

namespace
{
constexpr int iconMask = 0xf0;
constexpr int buttonMask = 0x0f;

QMessageBox::Icon iconOf(int flags)
{
    switch (flags & iconMask) {
    case box::stop: return QMessageBox::Critical;
    case box::question: return QMessageBox::Question;
    case box::exclamation: return QMessageBox::Warning;
    case box::information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}
} // namespace

int DesktopMessageBoxes::show(const QString &text, int flags, const QString &title, QWidget *owner)
{
    QMessageBox box(owner);
    box.setIcon(iconOf(flags));
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText); // a contact's name is never markup
    box.setText(text);
    if ((flags & buttonMask) != box::yesNo) {
        box.exec();
        return answer::ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? answer::yes : answer::no;
}

void DesktopMessageBoxes::showError(const Failure &failure)
{
    show(QStringLiteral("%1\n\n%2").arg(failure.number()).arg(failure.description()), box::stop,
         QApplication::applicationDisplayName(), nullptr);
}
