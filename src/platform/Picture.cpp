#include "platform/Picture.h"

#include "platform/Failure.h"
#include "platform/ProgramFolder.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <utility>

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
    const bool ofSomeDisk = stored.startsWith(u'\\'); // which disk was meant is not known
    const bool complete = stored.mid(1, 2) == QLatin1String(":\\") || stored.startsWith(QLatin1String("\\\\")) ||
                          (QDir::isAbsolutePath(stored) && !ofSomeDisk);
    return complete ? stored : fileIn(folder, QString(stored).replace(u'\\', u'/'));
}

// Where the points are read from.
class Picture::Source
{
public:
    explicit Source(const Picture &picture)
    {
        if (picture.bytes_.isEmpty()) {
            reader_.setFileName(picture.path_);
        } else {
            buffer_.setData(picture.bytes_);
            reader_.setDevice(&buffer_);
        }
        prepare(reader_);
    }
    QImageReader *operator->() { return &reader_; }
    const QImageReader &reader() const { return reader_; }
    bool turned() const { return reader_.transformation() & QImageIOHandler::TransformationRotate90; }

private:
    QBuffer buffer_; // outlives the reader
    QImageReader reader_;
};

Picture::Picture(QString path) : path_(std::move(path)) { measure(); }

Picture::Picture(QByteArray bytes, QString name) : path_(std::move(name)), bytes_(std::move(bytes))
{
    if (bytes_.isEmpty()) raiseInvalid(path_);
    measure();
}

void Picture::measure()
{
    Source source(*this);
    if (isDrawing(source.reader())) raiseInvalid(path_);
    naturalSize_ = source->size();
    if (source.turned()) naturalSize_.transpose();
    if (naturalSize_.isEmpty()) raiseInvalid(path_);
}

QImage Picture::image(QSize size) const
{
    Source source(*this);
    if (size.width() < naturalSize_.width() && size.height() < naturalSize_.height())
        source->setScaledSize(source.turned() ? size.transposed() : size);
    QImage image = source->read();
    if (image.isNull()) raiseInvalid(path_);
    return image.size() == size ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
