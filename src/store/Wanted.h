// The function wanted(text, text) of a statement: it asks the program, row by row, so that what the program
// does not want is neither sorted nor handed on.
#pragma once

#include <functional>
#include <string_view>

struct sqlite3;

// Null is empty. Must not raise: the store lies between whoever asks and who answers.
using Wanted = std::function<bool(std::string_view, std::string_view)>;

// Each statement of the connection asks what stands there while it runs; it fails where that is empty.
void registerWanted(sqlite3 *connection, Wanted &wanted);
