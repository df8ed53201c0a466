// One row of a table of the schema, by its ID.
#pragma once

#include "data/LinhaInteira.h"

#include <optional>

class DE;

// Nothing where the table has none of that ID. Raises Failure for an ID that is no number.
std::optional<LinhaInteira> Linha_Com_Id(DE &de, std::string_view tabela, const QString &ID);
