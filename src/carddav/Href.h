// Names of things on a server: absolute paths, spelled in one way, and the marks of their states.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

// The path that an answer of `base` names: absolute, everything but letters, digits and "-._~"
// percent-encoded in upper case, without host and query. Servers write the same name in several ways, and one
// of them does so twice within one answer.
QString normalHref(const QUrl &base, const QString &href);

// That path on the server of `base`.
QUrl addressAt(const QUrl &base, const QString &normalHref);

// What an answer of `base` names, where it may be on another server. Never leads from an encrypted server to
// itself unencrypted: behind a proxy many believe that they are.
QUrl addressNamed(const QUrl &base, const QString &href);

// True where a password for the one may be shown to the other: the same scheme, host and port, or the same
// host that is now encrypted.
bool isSameServer(const QUrl &known, const QUrl &other);

// An etag as it is sent back: strong and in quotes. Empty stays empty.
QByteArray normalEtag(const QByteArray &etag);
