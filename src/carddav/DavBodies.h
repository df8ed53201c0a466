// What is asked of a server, as the requests spell it.
#pragma once

#include "carddav/DavConnection.h"

#include <QStringList>

namespace dav
{
// Asks for the properties, given as elements in the namespaces D (DAV:) and C (CardDAV).
DavRequest propfind(const QUrl &url, const char *depth, const QByteArray &properties);
DavRequest syncCollection(const QUrl &url, const QByteArray &token);
DavRequest multiget(const QUrl &url, const QStringList &hrefs);
DavRequest get(const QUrl &url);
DavRequest put(const QUrl &url, const QByteArray &card);
DavRequest remove(const QUrl &url);
} // namespace dav
