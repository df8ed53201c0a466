// What a database file holds that is made of the data wherever they lie: all tables of the schema as a file
// has them, and all that stands in them.
#pragma once

#include "store/Store.h"

// The file must not be there yet. What has been done so far is told in per cent.
FileCopy Copia_Para_Ficheiro(const QString &ficheiro, std::function<void(int)> feito);
