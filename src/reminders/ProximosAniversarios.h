// Which birthdays lie within the next days. Contacts keep a day and a month for this; the year plays no part.
#pragma once

#include <QDate>
#include <QString>
#include <vector>

class Recordset;

struct Aniversariante {
    QString ID;
    QString Nome;
    QString Dia;
    QString Mes;
    bool hoje = false; // the birthday is today
};

// The rows of cmdListarAniversarios whose birthday comes in fewer than `dias` days, today included, in their
// own order. Across New Year next year's birthday counts. What is no date at all is never listed; 29 February
// counts as 1 March in a year without it.
std::vector<Aniversariante> Proximos_Aniversarios(Recordset &rs, QDate hoje, int dias);
