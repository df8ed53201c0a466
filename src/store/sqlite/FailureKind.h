// What a refusal of the store means for the person before the screen.
#pragma once

#include "platform/Failure.h"

class QString;
namespace SQLite
{
class Exception;
}

// The path is that of the database file, which is looked at where the store's code alone does not tell.
Failure::Kind kindOf(const SQLite::Exception &error, const QString &path);
