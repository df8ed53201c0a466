// How the store compares texts: in the program's own order, and by patterns that take no notice of case.
#pragma once

#include "platform/TextOrder.h"

struct sqlite3;

// True when the text matches the pattern, in which % stands for any run of characters and _ for any one.
bool matchesLike(QStringView pattern, QStringView text);

// Gives a connection of the store these rules: the collation MORVEX, and LIKE.
void registerTextRules(sqlite3 *connection);
