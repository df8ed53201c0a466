// The name of a table or a column as statements of the store take it, whatever letters it has.
#pragma once

#include <QString>

inline QString quotedName(const QString &name)
{
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}
