#include "controls/Drawing.h"

#include <QPainter>
#include <QSvgRenderer>

QImage drawing(const QString &path, const QSize &room)
{
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) return {};
    QSize inside = renderer.defaultSize();
    inside.scale(room, Qt::KeepAspectRatio);
    if (inside.isEmpty()) return {};
    QImage image(inside, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image); // has to be gone before the picture is handed on
        renderer.render(&painter);
    }
    return image;
}
