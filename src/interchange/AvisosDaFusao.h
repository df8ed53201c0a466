// What the merge says where the current database does not take what it should. The words stand in the code: a
// database that is locked or damaged can't be asked for them.
#pragma once

#include "interchange/Fusao.h"

namespace avisos_da_fusao
{
// Nothing at all can be written, and nothing has been merged. The language by its name ("AlemaoDE").
QString Nada_Se_Escreve(const QString &base, const QString &idioma);

// How much of each table is in the file, and what to do about the rest; ends with a line break.
QString Incompleta(const Fusao &fusao, const QString &idioma);
} // namespace avisos_da_fusao
