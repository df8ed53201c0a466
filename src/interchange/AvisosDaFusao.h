// What the merge says where it refuses a file, and where the current database does not take what it should.
// The words stand in the code: an older database lacks them, and one that is locked or damaged can't be
// asked.
#pragma once

#include "interchange/Fusao.h"

class DE;

namespace avisos_da_fusao
{
// The chosen file is the database in use, or larger than is read. The language by its name ("AlemaoDE").
QString Base_Em_Uso(const QString &ficheiro, const QString &idioma);
QString Ficheiro_Grande(const QString &ficheiro, const QString &idioma);

// Nothing at all can be written, and nothing has been merged.
QString Nada_Se_Escreve(const QString &base, const QString &idioma);

// Where what was merged is; of the last of it nobody may know yet whether it arrived.
enum class Onde { Ficheiro, Servidor, ServidorPorSaber };
Onde Onde_Se_Guardou(DE &de);

// How much of each table is there, and what to do about the rest; ends with a line break.
QString Incompleta(const Fusao &fusao, Onde onde, const QString &idioma);

// The same of the contacts of a text file, over which a server went away.
QString Servidor_Perdido(int guardados_la, int lidos, Onde onde, const QString &idioma);
} // namespace avisos_da_fusao
