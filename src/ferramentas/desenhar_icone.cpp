// desenhar_icone <drawing> <pixels> <picture>: one size of the program's icon, for menus that take no
// drawing.
#include <cstdio>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs("desenhar_icone <drawing> <pixels> <picture>\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int side = QByteArray(argv[2]).toInt();
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    if (!drawing.isValid() || picture.isNull()) {
        std::fprintf(stderr, "%s cannot be drawn at %s pixels\n", argv[1], argv[2]);
        return 1;
    }
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        drawing.render(&painter);
    }
    return picture.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}
