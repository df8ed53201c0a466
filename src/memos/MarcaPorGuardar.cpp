#include "memos/MarcaPorGuardar.h"

#include "controls/Scale.h"

#include <QPainter>

namespace
{
constexpr QColor cor_do_fundo(0xC0, 0x48, 0x3E);
constexpr QColor cor_das_letras(0xFF, 0xFF, 0xFF);
constexpr QColor cor_da_moldura(0x2B, 0x36, 0x40);
constexpr int margem = 7; // pixels beside the words
} // namespace

QSize MarcaPorGuardar::sizeHint() const
{
    const QFontMetrics letras = fontMetrics();
    return {letras.horizontalAdvance(text()) + 2 * scale::scaled(margem), letras.height()};
}

void MarcaPorGuardar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), cor_do_fundo);
    painter.setPen(cor_das_letras);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (!hasFocus() && !underMouse()) return;
    painter.setPen(cor_da_moldura);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
