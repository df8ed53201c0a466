// A contact that was changed here and there, made one again column by column: what changed on one side alone
// comes in; where both changed the same thing, the server's value stays there and ours becomes a line of Obs.
// A card knows no first or second number: those of a kind are told apart by what they are, not by their
// column.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <QStringList>
#include <vector>

struct TresVersoes {
    ColunasDoContacto aqui;
    ColunasDoContacto aqui_antes; // at the last agreement; empty without one
    ColunasDoContacto la;         // as the card reads
    ColunasDoContacto la_antes;   // as the card of the last agreement reads; empty without one
};

struct ConflitoDeColuna {
    Coluna coluna; // of a birthday the day
    QString aqui;
    QString la;
};

struct JuntosDosTres {
    ColunasDoContacto colunas; // the group is that of here
    // What the contact counts as having been at the new agreement: where it differs from the columns, these
    // still have to be sent.
    ColunasDoContacto acordo;
    std::vector<ConflitoDeColuna> conflitos;
};

// The labels are written in that language.
JuntosDosTres Juntar_Os_Tres(const TresVersoes &versoes, const QString &idioma);

// The same contact with the numbers and addresses of each kind in the columns in which the other one has
// them, so that only what is new is new.
ColunasDoContacto Alinhado(const ColunasDoContacto &colunas, const ColunasDoContacto &outro);

// Without the group, which is no part of a card.
bool Dizem_O_Mesmo(const ColunasDoContacto &um, const ColunasDoContacto &outro);

// A label for what a column holds, without a colon.
QString Rotulo_Da_Coluna(Coluna coluna, const QString &idioma);
