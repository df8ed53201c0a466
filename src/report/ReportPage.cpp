#include "report/ReportPage.h"

#include "platform/Failure.h"
#include "platform/Picture.h"

#include <QPainter>

namespace
{
QColor colourOf(unsigned colour) { return QColor::fromRgb(colour); }

Picture open(const QString &file, const std::function<QByteArray()> &held)
{
    QByteArray bytes = held ? held() : QByteArray();
    return bytes.isEmpty() ? Picture(file) : Picture(std::move(bytes), file);
}

// The picture no larger than the area at a printer's usual density; null where there is none.
QImage pictureFor(const QString &file, const std::function<QByteArray()> &held, const QSizeF &area)
{
    constexpr double twipsPerDot = 1440.0 / 300;
    QImage image;
    if (file.isEmpty()) return image;
    skipFailure([&] {
        const Picture picture = open(file, held);
        const QSize dots = (area / twipsPerDot).toSize();
        const QSize natural = picture.naturalSize();
        const bool fits = natural.width() <= dots.width() && natural.height() <= dots.height();
        const QSize shown = fits ? natural : natural.scaled(dots, Qt::KeepAspectRatio);
        image = picture.image(shown.expandedTo({1, 1}));
    });
    return image;
}

// As large as the area allows, but no larger than a screen shows it: a picture of few dots stays small rather
// than coarse.
QSizeF sizeOf(const QImage &image, const QSizeF &area)
{
    constexpr double twipsPerPixel = 15;
    const QSizeF natural = QSizeF(image.size()) * twipsPerPixel;
    const bool fits = natural.width() <= area.width() && natural.height() <= area.height();
    return fits ? natural : natural.scaled(area, Qt::KeepAspectRatio);
}

class Drawing
{
public:
    explicit Drawing(QPainter &painter) : painter_(painter) {}

    void operator()(const ReportPage::Text &text)
    {
        if (!font_ || *font_ != text.font) painter_.setFont(text.font);
        font_ = &text.font;
        painter_.setPen(colourOf(text.colour));
        painter_.drawText(QPointF(text.area.left(), text.baseline), text.line);
    }
    // A file that is no picture gives way to the fallback.
    void operator()(const ReportPage::Picture &picture)
    {
        QImage image = pictureFor(picture.file, picture.held, picture.area.size());
        if (image.isNull()) image = pictureFor(picture.fallback, {}, picture.area.size());
        if (image.isNull()) return;
        QRectF place({}, sizeOf(image, picture.area.size()));
        place.moveTopRight(picture.area.topRight());
        painter_.drawImage(place, image);
    }
    void operator()(const ReportPage::Stroke &stroke)
    {
        painter_.setPen(QPen(colourOf(stroke.colour), stroke.thickness));
        painter_.drawLine(stroke.line);
    }
    void operator()(const ReportPage::Frame &frame)
    {
        painter_.setPen(QPen(colourOf(frame.colour), frame.thickness));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(frame.area);
    }

private:
    QPainter &painter_;
    const QFont *font_ = nullptr; // the painter's; giving it one anew costs as much as a short text
};
} // namespace

std::vector<ReportPage::Text> ReportPage::texts() const
{
    std::vector<Text> all;
    for (const Item &item : items)
        if (const auto *text = std::get_if<Text>(&item.what)) all.push_back(*text);
    return all;
}

QStringList ReportPage::lines() const
{
    QStringList all;
    for (const Text &text : texts())
        all << text.line;
    return all;
}

void ReportPage::paint(QPainter &painter, Medium medium) const
{
    painter.save();
    Drawing drawing(painter);
    for (const Item &item : items)
        if (!item.screenOnly || medium == OnScreen) std::visit(drawing, item.what);
    painter.restore();
}
