#include "platform/report/ReportPages.h"

#include "platform/Picture.h"

#include <QDir>
#include <QImageReader>
#include <QPainter>
#include <QTextLayout>

using namespace Qt::StringLiterals;

struct ReportPages::Canvas {
    QPainter &painter;
    Medium medium;
    int page;
    mutable const QFont *font = nullptr; // the painter's; giving it one anew costs as much as a short text

    void setFont(const QFont &of) const
    {
        if (!font || *font != of) painter.setFont(of);
        font = &of;
    }
};

namespace
{
constexpr std::size_t tooShortToTear = 3; // lines; so few go to the next page together

QColor colourOf(const ReportElement &element) { return QColor::fromRgb(element.colour); }

// One line of text as it can be shown: whatever would break it or move it is a blank.
QString oneLine(QString text)
{
    for (QChar &sign : text)
        if (sign < u' ') sign = u' ';
    return text;
}

QStringList paragraphs(const ReportElement &element, QString text)
{
    text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    QStringList all = text.split(u'\n');
    if (element.dropsLines) all.removeIf([](const QString &line) { return line.trimmed().isEmpty(); });
    while (!all.isEmpty() && all.last().trimmed().isEmpty())
        all.removeLast();
    return all;
}

// The file's picture no larger than the area at a printer's usual density.
QImage pictureFor(const QString &file, const QSizeF &area)
{
    constexpr double twipsPerDot = 1440.0 / 300;
    QImageReader reader(file);
    reader.setAutoTransform(true);
    const QSize dots = (area / twipsPerDot).toSize();
    const QSize natural = reader.size();
    if (natural.width() > dots.width() || natural.height() > dots.height())
        reader.setScaledSize(natural.scaled(dots, Qt::KeepAspectRatio));
    return reader.read();
}
} // namespace

ReportPages::Metrics::Metrics(const QFont &of) : font(of), spacing(font.lineSpacing())
{
    advances.fill(unknown);
}

double ReportPages::Metrics::advance(const QString &text) const
{
    double sum = 0;
    for (const QChar sign : text) {
        const bool joins = sign.unicode() >= 0x300 && sign.isMark();
        if (joins || sign.unicode() >= advances.size()) return font.horizontalAdvance(text);
        double &width = advances[sign.unicode()];
        if (width == unknown) width = font.horizontalAdvance(sign);
        sum += width;
    }
    return sum;
}

ReportPages::ReportPages(ReportDefinition definition, ReportData data, QHash<QString, QString> parameters,
                         const QDate &today)
    : definition_(std::move(definition)),
      data_(std::move(data)),
      parameters_(std::move(parameters)),
      today_(today.toString(u"dd-MM-yyyy"_s))
{
    next_ = write(starts_.front(), nullptr);
    complete_ = next_.band > lastBand();
}

void ReportPages::findNext()
{
    if (complete_) return;
    starts_.push_back(next_);
    next_ = write(next_, nullptr);
    complete_ = next_.band > lastBand();
}

int ReportPages::count()
{
    while (!complete_)
        findNext();
    return found();
}

int ReportPages::pageOf(std::size_t record)
{
    const std::size_t band = record + 1;
    while (!complete_ && next_.band <= band)
        findNext();
    const auto behind = std::find_if(starts_.begin(), starts_.end(), [&](const Place &start) {
        return start.band > band || (start.band == band && (start.row > 0 || start.line > 0));
    });
    return static_cast<int>(behind - starts_.begin()) - 1;
}

const ReportBand &ReportPages::bandAt(std::size_t band) const
{
    if (band == 0) return definition_.reportHeader;
    return band == lastBand() ? definition_.reportFooter : definition_.detail;
}

std::optional<std::size_t> ReportPages::recordOf(std::size_t band) const
{
    if (data_.size() == 0) return std::nullopt;
    return std::clamp<std::size_t>(band, 1, data_.size()) - 1;
}

QString ReportPages::textOf(const ReportText &text, std::size_t band, const Canvas *canvas) const
{
    const auto record = recordOf(band);
    return text.in(
        {.field = [&](std::size_t field) { return record ? data_.field(*record, field) : QString(); },
         .parameter = [&](const QString &name) -> const QString * {
             auto found = parameters_.constFind(name);
             if (found != parameters_.constEnd()) return &*found;
             found = definition_.parameters.constFind(name);
             return found != definition_.parameters.constEnd() ? &*found : nullptr;
         },
         .page = canvas ? QString::number(canvas->page + 1) : QString(),
         .pages = complete_ ? QString::number(found()) : QString(),
         .date = today_});
}

bool ReportPages::closedUp(const ReportRow &row, std::size_t band) const
{
    if (!row.closesUp) return false;
    const auto record = recordOf(band);
    const auto filled = [&](std::size_t field) {
        return record && !data_.field(*record, field).trimmed().isEmpty();
    };
    return std::none_of(row.elements.begin(), row.elements.end(), [&](const ReportElement &element) {
        const auto &fields = element.text.fields();
        return std::any_of(fields.begin(), fields.end(), filled);
    });
}

// Of all rows that show, each as if nothing grew.
double ReportPages::fixedHeight(const ReportBand &band, std::size_t number) const
{
    double height = 0;
    for (const ReportRow &row : band.rows)
        if (!closedUp(row, number)) height = std::max(height, row.from) + row.height;
    return std::max(height, band.height);
}

// Lays out one page from the place on, painting it if there is a canvas; returns where the next one begins. A
// page takes at least one row or line, however little room there is, so the report always comes to its end.
ReportPages::Place ReportPages::write(const Place &start, const Canvas *canvas) const
{
    const double body = definition_.bodyHeight();
    Place place = start;
    double y = 0;
    for (; place.band <= lastBand(); place = {place.band + 1, 0, 0}) {
        const ReportBand &band = bandAt(place.band);
        const bool begins = place.row == 0 && place.line == 0;
        if (begins && y > 0) {
            const double needed = fixedHeight(band, place.band);
            if ((band.newPage && needed > 0) || (y + needed > body && needed <= body)) return place;
        }
        const double top = y;
        for (; place.row < band.rows.size(); ++place.row) {
            const ReportRow &row = band.rows[place.row];
            if (begins && row.from > 0 && !closedUp(row, place.band)) y = std::max(y, top + row.from);
            if (!writeRow(row, place, y, canvas)) return place;
        }
        if (begins) y = std::min(std::max(y, top + band.height), body);
    }
    return place;
}

// False when the row, or the rest of it, belongs on the next page.
bool ReportPages::writeRow(const ReportRow &row, Place &place, double &y, const Canvas *canvas) const
{
    if (closedUp(row, place.band)) return true;
    if (row.grows()) return writeGrowingRow(row, place, y, canvas);
    if (y > 0 && y + row.height > definition_.bodyHeight()) return false;
    if (canvas)
        for (const ReportElement &element : row.elements)
            paintElement(element, place.band, y, *canvas);
    y += row.height;
    return true;
}

bool ReportPages::writeGrowingRow(const ReportRow &row, Place &place, double &y, const Canvas *canvas) const
{
    const bool begins = place.line == 0;
    double spacing = 0;
    double top = 0;
    double below = row.height;
    std::size_t total = 0;
    for (const ReportElement &element : row.elements) {
        if (!element.grows) continue;
        spacing = std::max(spacing, metrics(element).spacing);
        if (begins) top = std::max(top, element.area.top());
        below = std::min(below, std::max(0.0, row.height - element.area.bottom()));
        total = std::max(total, static_cast<std::size_t>(grownLines(element, place.band).size()));
    }
    const double room = (definition_.bodyHeight() - y - top) / spacing;
    auto count = std::min(total - place.line, room > 0 ? static_cast<std::size_t>(room) : 0);
    const bool torn = begins && count < total && total <= tooShortToTear;
    if (y > 0 && (torn || (count == 0 && total > 0))) return false;
    if (count == 0) count = std::min<std::size_t>(total, 1);
    for (const ReportElement &element : row.elements) {
        if (!canvas) break;
        if (element.grows) {
            const QStringList part =
                grownLines(element, place.band)
                    .mid(static_cast<qsizetype>(place.line), static_cast<qsizetype>(count));
            paintText(element, part, begins ? y : y - element.area.top(), *canvas);
        } else if (begins) {
            paintElement(element, place.band, y, *canvas);
        }
    }
    y += top + static_cast<double>(count) * spacing;
    place.line += count;
    if (place.line < total) return false;
    place.line = 0;
    y = begins ? std::max(y + below, y - top - static_cast<double>(count) * spacing + row.height) : y + below;
    return true;
}

const ReportPages::Metrics &ReportPages::metrics(const ReportElement &element) const
{
    return metrics_.try_emplace(&element, element.font).first->second;
}

QStringList ReportPages::lines(const ReportElement &element, const QString &text) const
{
    QStringList lines;
    for (const QString &paragraph : paragraphs(element, text)) {
        const QString whole = oneLine(paragraph);
        if (metrics(element).advance(whole) <= element.area.width()) {
            lines << whole;
            continue;
        }
        QTextLayout layout(whole, element.font);
        QTextOption wrapping;
        wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(wrapping);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(element.area.width());
            lines << whole.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
    }
    return lines;
}

const QStringList &ReportPages::grownLines(const ReportElement &element, std::size_t band) const
{
    if (grownBand_ != band) grown_.clear();
    grownBand_ = band;
    const auto found = grown_.find(&element);
    if (found != grown_.end()) return found->second;
    return grown_[&element] = lines(element, textOf(element.text, band, nullptr));
}

// What fits into the element as it stands; one line too long ends in an ellipsis.
QStringList ReportPages::fixedLines(const ReportElement &element, const QString &text) const
{
    const Metrics &measure = metrics(element);
    const auto room = static_cast<qsizetype>(element.area.height() / measure.spacing);
    if (room > 1) return lines(element, text).mid(0, room);
    const QString whole = oneLine(text);
    if (measure.advance(whole) <= element.area.width()) return {whole};
    return {measure.font.elidedText(whole, Qt::ElideRight, element.area.width())};
}

void ReportPages::paint(QPainter &painter, int page, Medium medium)
{
    while (found() <= page && !complete_)
        findNext();
    if (page < 0 || page >= found()) return;
    const Canvas canvas{.painter = painter, .medium = medium, .page = page};
    const QMarginsF &margins = definition_.margins;
    painter.save();
    painter.translate(margins.left(), margins.top());
    writeFixed(definition_.pageHeader, 0, canvas);
    painter.translate(0, definition_.pageHeader.height);
    write(starts_[static_cast<std::size_t>(page)], &canvas);
    writeFixed(definition_.pageFooter, definition_.bodyHeight(), canvas);
    painter.restore();
}

// Page header and footer show the record with which their page begins.
void ReportPages::writeFixed(const ReportBand &band, double y, const Canvas &canvas) const
{
    const std::size_t first = starts_[static_cast<std::size_t>(canvas.page)].band;
    for (const ReportRow &row : band.rows) {
        for (const ReportElement &element : row.elements)
            paintElement(element, first, y, canvas);
        y += row.height;
    }
}

void ReportPages::paintElement(const ReportElement &element, std::size_t band, double y,
                               const Canvas &canvas) const
{
    if (element.screenOnly && canvas.medium != OnScreen) return;
    const QRectF area = element.area.translated(0, y);
    switch (element.kind) {
    case ReportElement::Text:
        return paintText(element, fixedLines(element, textOf(element.text, band, &canvas)), y, canvas);
    case ReportElement::Picture:
        return paintPicture(element, textOf(element.text, band, &canvas).trimmed(), y, canvas);
    case ReportElement::Line:
        canvas.painter.setPen(QPen(colourOf(element), element.thickness));
        return canvas.painter.drawLine(area.topLeft(), area.bottomRight());
    case ReportElement::Box:
        canvas.painter.setPen(QPen(colourOf(element), element.thickness));
        canvas.painter.setBrush(Qt::NoBrush);
        return canvas.painter.drawRect(area);
    }
}

void ReportPages::paintText(const ReportElement &element, const QStringList &lines, double y,
                            const Canvas &canvas) const
{
    const Metrics &measure = metrics(element);
    canvas.setFont(element.font);
    canvas.painter.setPen(colourOf(element));
    double baseline = y + element.area.top() + measure.font.ascent();
    for (const QString &line : lines) {
        const double spare =
            element.align == Qt::AlignLeft ? 0 : element.area.width() - measure.advance(line);
        const double left = element.area.left() + (element.align == Qt::AlignHCenter ? spare / 2 : spare);
        if (!line.isEmpty()) canvas.painter.drawText(QPointF(left, baseline), line);
        baseline += measure.spacing;
    }
}

// Whole and undistorted, at the top right of its area. A file that is no picture gives way to the fallback.
void ReportPages::paintPicture(const ReportElement &element, const QString &file, double y,
                               const Canvas &canvas) const
{
    const QDir folder = QFileInfo(definition_.path).dir();
    const QSizeF area = element.area.size();
    QImage image = file.isEmpty() ? QImage() : pictureFor(pictureFile(folder.path(), file), area);
    if (image.isNull() && !element.fallback.isEmpty())
        image = pictureFor(folder.filePath(element.fallback), area);
    if (image.isNull()) return;
    QRectF place({}, QSizeF(image.size()).scaled(area, Qt::KeepAspectRatio));
    place.moveTopRight(element.area.topRight() + QPointF(0, y));
    canvas.painter.drawImage(place, image);
}

ReportRows ReportPages::rows() const
{
    const auto cellOf = [this](const ReportText &text, std::size_t band) {
        QString cell = textOf(text, band, nullptr).trimmed();
        if (cell.contains(u'\r')) cell.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
        return cell;
    };
    ReportRows rows;
    rows.title = definition_.title;
    std::vector<const ReportElement *> columns;
    for (const ReportRow &row : definition_.detail.rows)
        for (const ReportElement &element : row.elements)
            if (element.kind == ReportElement::Text && element.text.hasFields()) columns.push_back(&element);
    for (const ReportElement *column : columns) {
        const ReportField &field = definition_.fields[column->text.fields().front()];
        const QString head = textOf(column->head, 1, nullptr);
        rows.heads << (head.isEmpty() ? field.column : head);
        rows.fields << field.table + u'.' + field.column;
    }
    rows.records.resize(data_.size());
    for (std::size_t i = 0; i < data_.size(); ++i) {
        rows.records[i].reserve(columns.size());
        for (const ReportElement *column : columns)
            rows.records[i].push_back(cellOf(column->text, i + 1));
    }
    return rows;
}
