// The data on a server, in a build that reaches servers: which file stands behind this is the build's choice.
#pragma once

#include "store/Store.h"

#include <memory>

namespace server_store
{
// Whether a text names a server at all, however wrongly; all others are paths of files.
bool isAddress(const QString &text);

// The text without what should not stand in it, for boxes and logs.
QString shown(const QString &address);

// Raises Failure with the reason why there is no connection. The server itself refuses the writes of the
// second.
std::unique_ptr<Store> open(const QString &address);
std::unique_ptr<Store> openReadOnly(const QString &address);
} // namespace server_store
