// desenhar_ico <drawing> <icon.ico>: the program's icon as Windows keeps one, in all its sizes.
#include <array>
#include <cstdio>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace
{
constexpr std::array sides{16, 20, 24, 32, 40, 48, 64, 256};

void put(QByteArray &bytes, int length, quint32 number)
{
    for (int i = 0; i < length; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

QImage pictureOf(QSvgRenderer &drawing, int side)
{
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    return picture;
}

// The points from below upwards, and behind them a mask of one bit a point, which the points' own
// transparency has made idle.
QByteArray asPoints(const QImage &picture)
{
    const auto side = static_cast<quint32>(picture.width());
    QByteArray bytes;
    put(bytes, 4, 40); // the length of this head
    put(bytes, 4, side);
    put(bytes, 4, 2 * side); // points and mask
    put(bytes, 2, 1);
    put(bytes, 2, 32);
    for (int i = 0; i < 6; ++i)
        put(bytes, 4, 0);
    for (int y = picture.height() - 1; y >= 0; --y)
        bytes.append(reinterpret_cast<const char *>(picture.constScanLine(y)),
                     qsizetype{4} * picture.width());
    const qsizetype maskLine = qsizetype{4} * ((picture.width() + 31) / 32);
    return bytes + QByteArray(maskLine * picture.height(), '\0');
}

QByteArray asPng(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return buffer.data();
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("desenhar_ico <drawing> <icon.ico>\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!drawing.isValid() || !file.open(QIODevice::WriteOnly)) return 1;

    constexpr quint32 headLength = 6;
    constexpr quint32 entryLength = 16;
    constexpr int compressedFrom = 256; // older readers want the small ones as points
    QByteArray head;
    put(head, 2, 0);
    put(head, 2, 1); // icons
    put(head, 2, sides.size());
    QByteArray pictures;
    for (const int side : sides) {
        const QImage picture = pictureOf(drawing, side);
        const QByteArray bytes = side < compressedFrom ? asPoints(picture) : asPng(picture);
        put(head, 1, static_cast<quint32>(side) & 0xFF); // 256 is written as 0
        put(head, 1, static_cast<quint32>(side) & 0xFF);
        put(head, 2, 0);
        put(head, 2, 1);
        put(head, 2, 32);
        put(head, 4, static_cast<quint32>(bytes.size()));
        put(head, 4,
            headLength + entryLength * static_cast<quint32>(sides.size()) +
                static_cast<quint32>(pictures.size()));
        pictures += bytes;
    }
    return file.write(head + pictures) == head.size() + pictures.size() ? 0 : 1;
}
