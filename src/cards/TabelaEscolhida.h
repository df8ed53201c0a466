// A foreign table as a person has settled it: read, with the meaning of its columns, and ready for
// ContactosDaTabela.
#pragma once

#include "cards/ContactosDaTabela.h"
#include "cards/MapaDaTabela.h"
#include "csv/CsvReader.h"

struct TabelaEscolhida {
    CsvTable tabela;
    MapaDaTabela mapa;                // one entry a column of the widest row
    ContactosDaTabela::Opcoes opcoes; // the groups are for whoever reads the rows
};
