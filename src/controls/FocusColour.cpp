#include "controls/FocusColour.h"

#include "controls/Contrast.h"
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

// What a field's palette was before the keyboard came.
constexpr const char *paletteBefore = "paletteBeforeFocus";

void takeKeyboard(QWidget &field)
{
    if (!field.property(paletteBefore).isValid()) field.setProperty(paletteBefore, field.palette());
    QPalette palette = field.palette();
    setGround(palette, colour(colourFocus));
    field.setPalette(palette);
}

void giveKeyboardBack(QWidget &field)
{
    const QVariant before = field.property(paletteBefore);
    if (!before.isValid()) return;
    field.setPalette(before.value<QPalette>());
    field.setProperty(paletteBefore, {});
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
    if (widget != nullptr && isField(*widget)) enters ? takeKeyboard(*widget) : giveKeyboardBack(*widget);
    return false;
}
