// The fifteen tables of morvex.mdb: their columns and types. The database has no keys between tables, no
// stored queries and no triggers; every rule that ties one table to another lies with the commands' callers.
#pragma once

#include "store/Values.h"

#include <span>
#include <string_view>

struct ColunaDaTabela {
    std::string_view nome;
    ColumnType tipo;
    bool contador = false;                // a key that the store assigns, from 1, and never reuses
    std::string_view por_omissao = {};    // the value of a row that doesn't name the column; Null where empty
    bool chave = false;                   // one row a value, which whoever adds the row gives
};

struct Tabela {
    std::string_view nome;
    std::span<const ColunaDaTabela> colunas;
    int desde = 0; // the step that brought it (PassosDoEsquema); 0: it was there from the start
};

namespace esquema
{
// A name of the schema or of the catalogue, and the text of a command, as statements are put together of.
QString Texto(std::string_view literal);

std::span<const Tabela> Tabelas();

// The type of a table's column; raises Failure for a name that the schema doesn't hold.
ColumnType Tipo(std::string_view tabela, std::string_view coluna);

// The statement that makes the table.
QString Sql_Criar(const Tabela &tabela);
} // namespace esquema
