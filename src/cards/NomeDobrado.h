// Names as they are compared: without case, accents and signs.
#pragma once

#include <QString>

// "  Straße (João)" is "strasse joao".
QString Nome_Dobrado(const QString &nome);
