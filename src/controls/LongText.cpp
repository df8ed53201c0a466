#include "controls/LongText.h"

#include <QPlainTextEdit>

namespace
{
// The box's plain text would turn every no-break space into a common one, its raw text doesn't.
QString rawText(const QPlainTextEdit &box) { return box.document()->toRawText(); }
} // namespace

void LongText::load(QPlainTextEdit &box, const QString &stored)
{
    box.setPlainText(stored);
    loaded_ = stored;
    shown_ = rawText(box);
}

QString LongText::stored(const QPlainTextEdit &box) const
{
    QString text = rawText(box);
    if (text == shown_) return loaded_;
    for (const QChar::SpecialCharacter lineEnd : {QChar::ParagraphSeparator, QChar::LineSeparator})
        text.replace(QChar(lineEnd), QStringLiteral("\r\n"));
    return text;
}
