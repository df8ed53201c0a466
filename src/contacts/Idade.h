// The age on the card, by its own way of counting.
#pragma once

#include <QDate>
#include <QString>

// Whole years from the birthday of the year after birth until today, and one more once this year's birthday has
// come. Within the month of birth the two days are compared as texts, so "9" counts as later than "12". Raises
// Failure when that first birthday is no date, as for a 29 February followed by a common year.
int Calcular_Idade(const QString &Dia, const QString &Mes, const QString &Ano, QDate hoje);
