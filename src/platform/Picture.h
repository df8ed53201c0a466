// A picture, of a file or of bytes: its natural size, and its points at whatever size they are shown.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

// The file that a stored path means. With a drive, a network name or a root of its own it stands by itself;
// any other begins in the folder, and may part its folders in the manner of another system.
QString pictureFile(const QString &folder, const QString &stored);

class Picture
{
public:
    Picture() = default;

    // Opens the file and reads its size. Raises Failure for a file that is missing, no picture, or a drawing.
    explicit Picture(QString path);
    // The same of bytes that are no file; the name is what a failure says.
    Picture(QByteArray bytes, QString name);

    const QString &path() const { return path_; }      // or the name
    QSize naturalSize() const { return naturalSize_; } // pixels; in twips it is 15 times that

    // The picture at that size in pixels, its proportions given up. A large photograph is never unpacked
    // whole for a small place. Raises Failure when the file turns out to be broken.
    QImage image(QSize size) const;

private:
    class Source;
    void measure();

    QString path_;
    QByteArray bytes_; // none: the file's
    QSize naturalSize_;
};
