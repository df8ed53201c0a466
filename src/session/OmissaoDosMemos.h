// The look of a new memo between its two forms: the texts that config.ini holds, and the font and the colour
// that dialogs and the sample show.
#pragma once

#include <QColor>
#include <QFont>

class Geral;

namespace omissao_dos_memos
{
// Raise Failure where a text is no number or no flag.
QFont Fonte(const Geral &geral);
QColor Cor(const Geral &geral);

// The size is written with a decimal comma, as the shipped file has it, whatever the desktop's language.
void Guardar_Fonte(const QFont &fonte, Geral &geral);
void Guardar_Cor(const QColor &cor, Geral &geral);
} // namespace omissao_dos_memos
