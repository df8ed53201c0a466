// Replaces a file in one step, or not at all: a full disk, a power cut or a crash leaves the old one whole.
#pragma once

class QByteArray;
class QString;

// Writes these bytes as the file's whole content. False when it could not be; nothing has changed then.
// Permissions of an existing file stay, and one that may not be written is refused.
bool replaceFile(const QString &path, const QByteArray &bytes);
