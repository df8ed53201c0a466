// The database of an office that begins: tables, texts, and the rows to begin with.
#pragma once

#include "data/Sementes.h"

#include <optional>
#include <QString>

class ServerSession;

namespace base_inicial
{
// In an empty database, in the caller's transaction. The rows get the numbers that they get in a new file, on which
// the program relies. The version is the program's.
void Criar(ServerSession &servidor, const QString &posto, const QString &versao,
           const std::optional<Sementes> &linhas);
} // namespace base_inicial
