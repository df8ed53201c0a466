// What one contact says besides another one who is the same person.
#pragma once

#include "cards/ChavesDoContacto.h"

#include <vector>

struct Completacao {
    ColunasDoContacto colunas;       // the other's with what comes in; a value that is there stays
    std::vector<Coluna> preenchidas; // in which they differ from the other's; none: nothing new came
};

// The keys are those of the columns; their names are of no account. The word before what finds no free column
// goes into Obs in that language.
Completacao Completado(const ColunasDoContacto &outro, const ChavesDoContacto &as_dele,
                       const ColunasDoContacto &novas, const ChavesDoContacto &as_novas,
                       const QString &idioma);
