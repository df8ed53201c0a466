#include "memos/TextoDoMemo.h"

#include "controls/Scale.h"

namespace
{
constexpr int faixa_dos_botoes = 15; // pixels
}

TextoDoMemo::TextoDoMemo(QWidget *parent) : QPlainTextEdit(parent)
{
    const int faixa = scale::scaled(faixa_dos_botoes);
    setViewportMargins(0, 0, 0, faixa);
    auto *sob_a_barra = new QWidget(this);
    sob_a_barra->setFixedSize(1, faixa);
    addScrollBarWidget(sob_a_barra, Qt::AlignBottom);
}
