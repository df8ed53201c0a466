#include "controls/FocusColour.h"

#include "controls/Units.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace
{
bool isField(const QWidget &widget)
{
    if (widget.property("ownBackground").toBool()) return false;
    if (const auto *line = qobject_cast<const QLineEdit *>(&widget)) return !line->isReadOnly();
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(&widget)) return !text->isReadOnly();
    if (const auto *text = qobject_cast<const QTextEdit *>(&widget)) return !text->isReadOnly();
    return qobject_cast<const QComboBox *>(&widget) != nullptr ||
           qobject_cast<const QDateTimeEdit *>(&widget) != nullptr;
}

void paintBackground(QWidget &field, unsigned number)
{
    QPalette palette = field.palette();
    palette.setColor(QPalette::Base, colour(number));
    if (qobject_cast<QComboBox *>(&field) != nullptr) palette.setColor(QPalette::Button, colour(number));
    field.setPalette(palette);
}
} // namespace

void FocusColour::install(QApplication &application)
{
    application.installEventFilter(new FocusColour(&application));
}

bool FocusColour::eventFilter(QObject *watched, QEvent *event)
{
    const bool enters = event->type() == QEvent::FocusIn;
    if (!enters && event->type() != QEvent::FocusOut) return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    if (widget != nullptr && isField(*widget)) paintBackground(*widget, enters ? colourFocus : colourWhite);
    return false;
}
