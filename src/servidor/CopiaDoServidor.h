// All that a database on a server holds, as the file that every copy of the program opens: the backup of an
// office, and the way back from a server. What is copied, and how, is what a desk's own backup does.
#pragma once

#include "servidor/MudancaParaServidor.h"

namespace copia
{
// Makes the file, which must not be there yet, with everything as it stood at one moment: others go on
// writing meanwhile. Raises Failure, also for a database that has not had the steps of this program; then
// there is no file.
QList<mudanca::Contagem> Trazer(const QString &endereco, const QString &ficheiro);
} // namespace copia
