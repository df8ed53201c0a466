// All that a database on a server holds, as the file that every copy of the program opens: the backup of an
// office, and the way back from a server.
#pragma once

#include "servidor/MudancaParaServidor.h"

namespace copia
{
// Makes the file, which must not be there yet, with everything as it stood at one moment: others go on
// writing meanwhile. Raises Failure; then there is no file.
QList<mudanca::Contagem> Trazer(ServerSession &servidor, const QString &ficheiro);
} // namespace copia
