// A row of a table with every column, as it can be put back after it was deleted: a Null stays Null and an
// empty text empty.
#pragma once

#include "store/Values.h"

#include <map>
#include <QString>
#include <string_view>
#include <vector>

class Field;
class Recordset;

// By the names of the columns that the schema gives the table.
using LinhaInteira = std::map<std::string_view, StoreValue>;
using LinhasInteiras = std::vector<LinhaInteira>;

namespace linha_inteira
{
// The statements for one table of the schema; its columns stand in the order of the schema.
QString Sql_Ler(std::string_view tabela, std::string_view coluna);
QString Sql_Repor(std::string_view tabela);

// The recordset's current row. Raises Failure for a value that its column cannot hold.
LinhaInteira Da_Linha(std::string_view tabela, const Recordset &rs);

// The values of the row in the order of the ? of Sql_Repor.
std::vector<StoreValue> Valores(std::string_view tabela, const LinhaInteira &linha);

// A cell as text; Null is the empty text.
QString Texto(const LinhaInteira &linha, std::string_view coluna);
} // namespace linha_inteira
