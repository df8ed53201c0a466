// Where a database file can be read without a trace. One that is written ahead, as another program may have
// left it, gets side files from whoever reads it, even from one who only looks: it is read from a copy, which
// goes with the object and holds what stands in its side file too.
#pragma once

#include <memory>
#include <QString>
#include <QTemporaryDir>

class UntouchedSource
{
public:
    // Raises Failure for a file that can't be copied, or that changes all the while.
    explicit UntouchedSource(const QString &path);

    // How many bytes whoever reads that file reads: its own, and those of its side file.
    static qint64 bytes(const QString &path);

    const QString &path() const { return path_; }
    int flags() const; // as the store opens it

private:
    void copy(const QString &source);

    QString path_;
    std::unique_ptr<QTemporaryDir> folder_; // of the copy; none where the file itself is read
};
