// The build has drawn each in several sizes (ferramentas/desenhar_pontos): nothing here reads drawings.
#include "controls/Drawing.h"

#include <algorithm>
#include <QDir>

namespace
{
// ":/imagens/toolbar/opcoes.svg" stands as ":/pontos/imagens/toolbar/opcoes.svg/32.png" and so on. The
// smallest picture that need not grow, or the largest.
QString pictureFor(const QString &path, int side)
{
    const QString folder = QStringLiteral(":/pontos") + path.sliced(1);
    QList<int> sides;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        sides << name.chopped(4).toInt();
    if (sides.isEmpty()) return {};
    std::sort(sides.begin(), sides.end());
    const auto enough = std::lower_bound(sides.begin(), sides.end(), side);
    return QStringLiteral("%1/%2.png").arg(folder).arg(enough == sides.end() ? sides.last() : *enough);
}
} // namespace

QImage drawing(const QString &path, const QSize &room)
{
    if (room.isEmpty() || !path.startsWith(QLatin1String(":/"))) return {};
    const QImage picture(pictureFor(path, std::max(room.width(), room.height())));
    if (picture.isNull()) return {};
    return picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
