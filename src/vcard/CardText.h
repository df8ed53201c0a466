// The encodings of a card file: from what a program wrote to bytes that can be cut into lines, and from the
// bytes of one value to its text. Older cards name the encoding at each property, so a file has none of its
// own.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// What bytes are taken for that are no UTF-8 and have no name for what they are.
inline constexpr const char *usualCardCharset = "windows-1252";

// The file without a mark at its start. UTF-16, with a mark or told by its zeros, has become UTF-8; all else
// stays as it is.
QByteArray plainCardBytes(const QByteArray &file);

// The encoding that these bytes are in: the named one if they agree with it, else UTF-8 if they are (even cut
// short or with a few errors), else the fallback. Empty stands for UTF-8.
QByteArray charsetOfCardBytes(const QByteArray &bytes, const QByteArray &named, const QByteArray &fallback);

// The text of bytes in an encoding which charsetOfCardBytes gave. What cannot be read becomes U+FFFD.
QString cardText(QByteArrayView bytes, const QByteArray &charset);
