#include "platform/Picture.h"

#include "platform/Failure.h"
#include "platform/ProgramFolder.h"

#include <QDir>
#include <QImageReader>

namespace
{
// Room for 8000 x 8000 points. What a small file could unpack to beyond that is no photograph.
constexpr int largestUnpacked = 256; // MiB

[[noreturn]] void raiseInvalid(const QString &path)
{
    throw Failure(Failure::InvalidPicture, path, QStringLiteral("Invalid picture: %1").arg(path));
}

// By its content: an extension tells what somebody hoped the file to be.
void prepare(QImageReader &reader)
{
    QImageReader::setAllocationLimit(largestUnpacked);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
}

// A drawing, whatever its file is called, is a program of sorts: it can ask for other files and for any
// amount of work. A picture is points.
bool isDrawing(const QImageReader &reader) { return reader.format().startsWith("svg"); }
} // namespace

QString pictureFile(const QString &folder, const QString &stored)
{
    const bool complete = stored.mid(1, 2) == QLatin1String(":\\") ||
                          stored.startsWith(QLatin1String("\\\\")) || QDir::isAbsolutePath(stored);
    return complete ? stored : fileIn(folder, QString(stored).replace(u'\\', QDir::separator()));
}

Picture::Picture(const QString &path) : path_(path)
{
    QImageReader reader(path);
    prepare(reader);
    if (isDrawing(reader)) raiseInvalid(path);
    naturalSize_ = reader.size();
    if (reader.transformation() & QImageIOHandler::TransformationRotate90) naturalSize_.transpose();
    if (naturalSize_.isEmpty()) raiseInvalid(path);
}

QImage Picture::image(QSize size) const
{
    QImageReader reader(path_);
    prepare(reader);
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    if (size.width() < naturalSize_.width() && size.height() < naturalSize_.height())
        reader.setScaledSize(turned ? size.transposed() : size);
    QImage image = reader.read();
    if (image.isNull()) raiseInvalid(path_);
    return image.size() == size ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
