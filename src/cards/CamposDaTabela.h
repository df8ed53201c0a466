// What a person can say that a column of a foreign table holds, in words.
#pragma once

#include "csv/CsvFields.h"

#include <QString>
#include <vector>

class Geral;

namespace campos_da_tabela
{
// In the order in which a person chooses among them; the first is what goes to Obs.
const std::vector<CsvColumn> &Todos();

// Known columns that no field of a contact takes go to Obs as well.
bool Vai_Para_Obs(const CsvColumn &coluna);

// In the active language: "Telefone 2", "Localidade (casa)", "Telefone 1 (espécie)".
QString Palavra(const CsvColumn &coluna, Geral &geral);

// The place of the choice that says the same of the column; -1 where none does.
int Escolha_De(const CsvColumn &coluna);
} // namespace campos_da_tabela
