// What of a form can be read, measured on its picture: the letters that it shows against the ground they
// stand on.
#pragma once

#include <QStringList>

class QWidget;

namespace legibilidade
{
// What cannot be read of the enabled and visible controls of that window, and of the window itself: one line
// for each text whose contrast is below 4.5.
QStringList Ilegiveis(QWidget &janela);

// The same for one control, as it is painted now. `medidos` counts the texts that were looked at.
QStringList Ilegiveis_De(QWidget &controlo, int *medidos = nullptr);
} // namespace legibilidade
