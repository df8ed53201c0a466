#include "platform/WritableFolder.h"

#include <QTemporaryFile>

// Many rules decide there, and none of them tells beforehand.
bool isWritableFolder(const QString &path)
{
    QTemporaryFile file(path + QStringLiteral("/morvex-XXXXXX.tmp"));
    return file.open();
}
