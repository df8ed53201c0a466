#include "platform/WritableFolder.h"

#include <QFileInfo>

bool isWritableFolder(const QString &path) { return QFileInfo(path).isWritable(); }
