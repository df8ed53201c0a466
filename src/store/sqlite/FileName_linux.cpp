#include "store/sqlite/FileName.h"

#include <QString>

std::string storeFileName(const QString &path) { return path.toStdString(); }
