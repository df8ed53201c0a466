#include "controls/DrawnIcon.h"

#include "controls/Drawing.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace
{
// As the style shows what is disabled or selected.
QPixmap inMode(const QPixmap &picture, QIcon::Mode mode)
{
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    const QPixmap styled = QApplication::style()->generatedIconPixmap(mode, picture, &option);
    return styled.isNull() ? picture : styled;
}

class DrawnIconEngine final : public QIconEngine
{
public:
    explicit DrawnIconEngine(QString path) : path_(std::move(path)) {}

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const QString key = u"%1 %2x%3 %4 %5"_s.arg(path_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode)
                                .arg(QGuiApplication::palette().cacheKey());
        QPixmap picture;
        if (QPixmapCache::find(key, &picture)) return picture;
        picture = QPixmap::fromImage(drawing(path_, size));
        if (picture.isNull()) return picture;
        picture = inMode(picture, mode);
        QPixmapCache::insert(key, picture);
        return picture;
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QSizeF points = QSizeF(rect.size()) * painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(points.toSize(), mode, state));
    }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return pixmap(size, mode, state).size();
    }

    // The icon of one file is all that it takes.
    void addFile(const QString &path, const QSize &, QIcon::Mode, QIcon::State) override { path_ = path; }

    QIconEngine *clone() const override { return new DrawnIconEngine(path_); }
    bool isNull() override { return false; }

private:
    QString path_;
};
} // namespace

QIconEngine *drawnIconEngine(const QString &path) { return new DrawnIconEngine(path); }

QIcon drawnIcon(const QString &path) { return QIcon(drawnIconEngine(path)); }

void giveDrawnIcons(QObject &form)
{
    for (QObject *part : form.findChildren<QObject *>())
        if (const QVariant picture = part->property("imagem"); picture.isValid())
            part->setProperty("icon", drawnIcon(picture.toString()));
}
