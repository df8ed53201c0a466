// desenhar_pontos <pictures.qrc> <folder>: the drawings of a list of resources, each in several sizes, for a
// system whose toolkit reads no drawings; and a list of the same name there that has both, the pictures below
// "pontos".
#include <array>
#include <cstdio>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array sides{16, 20, 24, 32, 40, 48, 64, 96, 128, 256};

bool drawIn(QSvgRenderer &drawing, int side, const QString &path)
{
    QSize size = drawing.defaultSize();
    size.scale(side, side, Qt::KeepAspectRatio);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    return picture.save(path, "PNG");
}

QString entry(const QString &path, const QString &name)
{
    return u"    <file alias=\"%1\">%2</file>\n"_s.arg(name, path);
}

// Both kinds of entries for one drawing; empty where it cannot be drawn.
QString drawAll(const QString &source, const QString &name, const QDir &folder)
{
    QSvgRenderer drawing(source);
    if (!drawing.isValid() || !folder.mkpath(name)) return {};
    QString entries = entry(source, name);
    for (const int side : sides) {
        const QString picture = u"%1/%2.png"_s.arg(name).arg(side);
        if (!drawIn(drawing, side, folder.filePath(picture))) return {};
        entries += entry(folder.absoluteFilePath(picture), u"pontos/"_s + picture);
    }
    return entries;
}

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("desenhar_pontos <pictures.qrc> <folder>\n", stderr);
        return 2;
    }
    const QFileInfo list(QString::fromLocal8Bit(argv[1]));
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    QString entries;
    static const QRegularExpression file(u"<file>([^<]+)</file>"_s);
    for (auto found = file.globalMatch(textOf(list.filePath())); found.hasNext();) {
        const QString name = found.next().captured(1);
        const QString drawn = drawAll(list.absoluteDir().filePath(name), name, folder);
        if (drawn.isEmpty()) {
            std::fprintf(stderr, "%s cannot be drawn\n", qPrintable(name));
            return 1;
        }
        entries += drawn;
    }
    QFile result(folder.filePath(list.fileName()));
    const QString text = u"<RCC>\n  <qresource prefix=\"/\">\n%1  </qresource>\n</RCC>\n"_s.arg(entries);
    if (entries.isEmpty() || !result.open(QIODevice::WriteOnly)) return 1;
    return result.write(text.toUtf8()) > 0 ? 0 : 1;
}
