// The check of a birthday as it is typed: three texts, each of which may be empty.
#pragma once

class QString;

// Passes a full date whose year has four digits, a day and month that some year has, and three empty texts.
// Any other mix fails, and so does a text that holds more than digits.
bool Aniversario_Valido(const QString &Dia, const QString &Mes, const QString &Ano);
