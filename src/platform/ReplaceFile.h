// Replaces a file in one step, or not at all: a full disk, a power cut or a crash leaves the old one whole.
#pragma once

#include <QSaveFile>

class QByteArray;
class QString;

// Writes these bytes as the file's whole content. False when it could not be; nothing has changed then.
// Permissions of an existing file stay, and one that may not be written is refused.
bool replaceFile(const QString &path, const QByteArray &bytes);

// The same for a content that comes in portions. What was not committed leaves no trace.
class FileReplacement
{
public:
    explicit FileReplacement(const QString &path);

    // False once the file could not be opened or a portion not be written.
    bool append(const QByteArray &portion);
    bool commit();

private:
    QSaveFile file_;
    bool isGood_;
};
