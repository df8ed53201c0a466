// The function wanted(text, text) of a statement: it asks the program, row by row, so that what the program
// does not want is neither sorted nor handed on.
#pragma once

#include "store/Store.h"

struct sqlite3;

// Each statement of the connection asks what stands there while it runs; it fails where that is empty.
void registerWanted(sqlite3 *connection, Wanted &wanted);
