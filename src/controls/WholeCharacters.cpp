#include "controls/WholeCharacters.h"

#include <QLineEdit>

namespace
{
QString withoutHalves(const QString &text)
{
    QString whole;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) whole += text[i++];
        if (pair || !text[i].isSurrogate()) whole += text[i];
    }
    return whole;
}
} // namespace

void keepWholeCharacters(QLineEdit &field)
{
    QObject::connect(&field, &QLineEdit::textChanged, &field, [&field](const QString &text) {
        if (text.isValidUtf16()) return;
        const int place = field.cursorPosition();
        field.setText(withoutHalves(text));
        field.setCursorPosition(place);
    });
}
