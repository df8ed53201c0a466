// Texts of settings and lists as the 16-bit integers that the program keeps of them.
#pragma once

#include <QtGlobal>

class QString;

// Raises Failure: a type mismatch for what is no whole number, an overflow for what does not fit.
qint16 Inteiro(const QString &texto);
