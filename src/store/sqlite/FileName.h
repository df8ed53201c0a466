// A file's path as the store's library takes it.
#pragma once

#include <string>

class QString;

std::string storeFileName(const QString &path);
