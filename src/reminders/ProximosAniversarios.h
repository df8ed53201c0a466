// Which birthdays lie within the next days. Contacts keep a day and a month for this; the year plays no part.
#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <vector>

class Geral;

struct Aniversariante {
    QString ID;
    QString Nome;
    QString Dia;
    QString Mes;
    bool hoje = false; // the birthday is today
};

// Those of the contacts that the user sees whose birthday comes in fewer than `dias` days, today included, by
// name; nothing where there are no such contacts at all. Across New Year next year's birthday counts. What is
// no date at all is never listed; 29 February counts as 1 March in a year without it.
std::optional<std::vector<Aniversariante>> Proximos_Aniversarios(Geral &geral, QDate hoje, int dias);
