#include "report/ReportLayout.h"

#include "platform/Picture.h"

#include <algorithm>
#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::size_t tooShortToTear = 3; // lines; so few go to the next page together

// Over the width of the body, in grey; clear of the sheet's edge where the definition has no margins.
ReportElement noticeOn(const ReportDefinition &definition)
{
    constexpr double height = 1200;
    constexpr double below = 150;
    constexpr double edge = 850;
    const QMarginsF &margins = definition.margins;
    ReportElement notice;
    notice.font = standardReportFont();
    notice.area = QRectF(0, below, definition.paper().width() - margins.left() - margins.right(), height)
                      .adjusted(std::max(0.0, edge - margins.left()), std::max(0.0, edge - margins.top()),
                                -std::max(0.0, edge - margins.right()), 0);
    notice.colour = 0x606060;
    return notice;
}
} // namespace

// One page in the making.
class ReportLayout::Sheet
{
public:
    Sheet(ReportLayout &layout, const Place &start, const Numbers &numbers)
        : layout_(layout),
          definition_(layout.definition_),
          numbers_(numbers),
          first_(start.band),
          place_(start)
    {
    }

    Laid fill();

private:
    void begin();
    void putNotice();
    bool fillBand(const ReportBand &band);
    bool fillCell(const ReportBand &band);
    bool fillRecord(const ReportBand &band);
    void leaveFree(const ReportBand &band);
    bool fits(const ReportBand &band);
    bool fillRow(const ReportRow &row);
    bool dropRow(const ReportRow &row);
    bool fillGrowingRow(const ReportRow &row);
    void putFixed(const ReportBand &band, double top);

    // At their height within the body.
    void put(const ReportElement &element, std::size_t band, double y);
    void putText(const ReportElement &element, const QStringList &lines, const QFont &font, double y);
    void putFitting(const ReportElement &element, const QString &text, double y);
    void putPicture(const ReportElement &element, const QString &file, double y);
    template<class What> void putItem(What what, const ReportElement &element)
    {
        page_.items.push_back({.what = std::move(what), .screenOnly = element.screenOnly});
    }
    QRectF areaOf(const ReportElement &element, double y) const
    {
        return element.area.translated(definition_.margins.left() + x_,
                                       definition_.margins.top() + definition_.pageHeader.height + y);
    }

    ReportLayout &layout_;
    const ReportDefinition &definition_;
    const Numbers &numbers_;
    const std::size_t first_; // the band with which the page begins
    Place place_;
    double top_ = 0;   // of the body, below what stands over the rest of a record
    double y_ = 0;     // how far the body is filled
    double x_ = 0;     // of the column in hand
    double below_ = 0; // where the row of columns in hand ends
    int cell_ = 0;     // of the columns, row by row
    ReportPage page_;
};

ReportLayout::Laid ReportLayout::Sheet::fill()
{
    putFixed(definition_.pageHeader, -definition_.pageHeader.height);
    begin();
    for (; place_.band <= layout_.lastBand(); place_ = {place_.band + 1, 0, 0}) {
        if (!fillBand(layout_.bandAt(place_.band))) break;
        if (place_.band == 0 && layout_.data_.size() == 0) putNotice();
    }
    putFixed(definition_.pageFooter, definition_.bodyHeight());
    return {std::move(page_), place_};
}

// A record that goes on has its head.
void ReportLayout::Sheet::begin()
{
    const bool goesOn = place_.row > 0 || place_.line > 0;
    if (!goesOn || place_.band == 0 || place_.band == layout_.lastBand()) return;
    putFixed(definition_.continued, 0);
    y_ = top_ = definition_.continued.height;
}

// In the place of the details.
void ReportLayout::Sheet::putNotice()
{
    if (layout_.nothing_.isEmpty()) return;
    putFitting(layout_.notice_, layout_.nothing_, y_);
    y_ += layout_.notice_.area.bottom();
}

// False when the band, or the rest of it, belongs on the next page. So for what fills its parts.
bool ReportLayout::Sheet::fillBand(const ReportBand &band)
{
    if (band.columns > 1) return fillCell(band);
    y_ = std::max(y_, below_);
    return fillRecord(band);
}

// The next column begins where this one began; a full row goes down.
bool ReportLayout::Sheet::fillCell(const ReportBand &band)
{
    if (first_ == 0 && place_.band == 1) leaveFree(band);
    const double top = y_;
    x_ = cell_ % band.columns * band.width;
    const bool filled = fillRecord(band);
    x_ = 0;
    below_ = std::max(below_, y_);
    y_ = ++cell_ % band.columns == 0 ? below_ : top;
    return filled;
}

// The places before the first one, on a sheet that has been used in part. At least the last one is left to
// fill.
void ReportLayout::Sheet::leaveFree(const ReportBand &band)
{
    const auto given = layout_.parameters_.constFind(band.first);
    if (given == layout_.parameters_.constEnd()) return;
    const int rows = static_cast<int>((definition_.bodyHeight() - y_) / band.height);
    cell_ = std::clamp(given->toInt() - 1, 0, std::max(rows * band.columns - 1, 0));
    const int rowsLeft = cell_ / band.columns;
    y_ += rowsLeft * band.height;
}

// Whether the band may begin here.
bool ReportLayout::Sheet::fits(const ReportBand &band)
{
    const double body = definition_.bodyHeight();
    const double needed = layout_.fixedHeight(band, place_.band);
    if (band.newPage && needed > 0) return false;
    if (band.together) return y_ + layout_.wholeHeight(band, place_.band, numbers_) <= body;
    return y_ + needed <= body || needed > body;
}

bool ReportLayout::Sheet::fillRecord(const ReportBand &band)
{
    const double body = definition_.bodyHeight();
    const bool begins = place_.row == 0 && place_.line == 0;
    if (begins && y_ > top_ && !fits(band)) return false;
    const double top = y_;
    for (; place_.row < band.rows.size(); ++place_.row) {
        const ReportRow &row = band.rows[place_.row];
        if (begins && row.from > 0 && !layout_.closedUp(row, place_.band)) y_ = std::max(y_, top + row.from);
        if (!fillRow(row)) return false;
    }
    if (begins) y_ = std::max(y_, top + band.height);
    y_ = std::min(y_, body); // what was too tall for any page leaves no page behind it
    return true;
}

bool ReportLayout::Sheet::fillRow(const ReportRow &row)
{
    if (layout_.closedUp(row, place_.band)) return true;
    if (row.grows()) return fillGrowingRow(row);
    if (y_ > top_ && y_ + row.height > definition_.bodyHeight()) return dropRow(row);
    for (const ReportElement &element : row.elements)
        put(element, place_.band, y_);
    y_ += row.height;
    return true;
}

// A rule belongs to what stands above it: alone on top of the next page it would part nothing.
bool ReportLayout::Sheet::dropRow(const ReportRow &row)
{
    if (place_.row == 0 || !row.onlyDrawn()) return false;
    y_ = definition_.bodyHeight();
    return true;
}

bool ReportLayout::Sheet::fillGrowingRow(const ReportRow &row)
{
    const bool begins = place_.line == 0;
    double spacing = 0;
    double top = 0;
    double below = row.height;
    std::size_t total = 0;
    for (const ReportElement &element : row.elements) {
        if (!element.grows) continue;
        spacing = std::max(spacing, layout_.lines_.measure(element).spacing());
        if (begins) top = std::max(top, element.area.top());
        below = std::min(below, std::max(0.0, row.height - element.area.bottom()));
        total = std::max(total,
                         static_cast<std::size_t>(layout_.grownLines(element, place_.band, numbers_).size()));
    }
    const double room = (definition_.bodyHeight() - y_ - top) / spacing;
    auto count = std::min(total - place_.line, room > 0 ? static_cast<std::size_t>(room) : 0);
    const bool torn = begins && count < total && total <= tooShortToTear;
    if (y_ > top_ && (torn || (count == 0 && total > 0))) return false;
    if (count == 0) count = std::min<std::size_t>(total, 1);
    for (const ReportElement &element : row.elements) {
        if (element.grows) {
            const QStringList part =
                layout_.grownLines(element, place_.band, numbers_)
                    .mid(static_cast<qsizetype>(place_.line), static_cast<qsizetype>(count));
            putText(element, part, element.font, begins ? y_ : y_ - element.area.top());
        } else if (begins) {
            put(element, place_.band, y_);
        }
    }
    const double begun = y_;
    y_ += top + static_cast<double>(count) * spacing;
    place_.line += count;
    if (place_.line < total) return false;
    place_.line = 0;
    y_ = begins ? std::max(y_ + below, begun + row.height) : y_ + below;
    return true;
}

void ReportLayout::Sheet::putFixed(const ReportBand &band, double top)
{
    for (const ReportRow &row : band.rows) {
        for (const ReportElement &element : row.elements)
            put(element, first_, top);
        top += row.height;
    }
}

void ReportLayout::Sheet::put(const ReportElement &element, std::size_t band, double y)
{
    const QRectF area = areaOf(element, y);
    const auto text = [&] { return layout_.textOf(element.text, band, numbers_); };
    switch (element.kind) {
    case ReportElement::Text:
        return putFitting(element, text(), y);
    case ReportElement::Picture:
        return putPicture(element, text().trimmed(), y);
    case ReportElement::Line:
        return putItem(ReportPage::Stroke{.line = {area.topLeft(), area.bottomRight()},
                                          .thickness = element.thickness,
                                          .colour = element.colour},
                       element);
    case ReportElement::Box:
        return putItem(
            ReportPage::Frame{.area = area, .thickness = element.thickness, .colour = element.colour},
            element);
    }
}

void ReportLayout::Sheet::putFitting(const ReportElement &element, const QString &text, double y)
{
    const ReportLines::Fitted fitted = layout_.lines_.fitting(element, text);
    putText(element, fitted.lines, fitted.font, y);
    page_.lost << fitted.lost;
}

void ReportLayout::Sheet::putText(const ReportElement &element, const QStringList &lines, const QFont &font,
                                  double y)
{
    FontMeasure &measure = layout_.lines_.measure(element, font);
    const QRectF area = areaOf(element, y);
    double top = area.top();
    for (const QString &line : lines) {
        if (!line.isEmpty()) {
            const double width = measure.advance(line);
            const double spare = element.align == Qt::AlignLeft ? 0 : area.width() - width;
            const double left = area.left() + (element.align == Qt::AlignHCenter ? spare / 2 : spare);
            putItem(ReportPage::Text{.line = line,
                                     .area = {left, top, width, measure.spacing()},
                                     .baseline = top + measure.ascent(),
                                     .font = font,
                                     .colour = element.colour},
                    element);
        }
        top += measure.spacing();
    }
}

void ReportLayout::Sheet::putPicture(const ReportElement &element, const QString &file, double y)
{
    const QDir folder = QFileInfo(definition_.path).dir();
    const auto path = [&](const QString &name) { return name.isEmpty() ? name : folder.filePath(name); };
    ReportPage::Picture picture{.file = file.isEmpty() ? file : pictureFile(folder.path(), file),
                                .fallback = path(element.fallback),
                                .area = areaOf(element, y),
                                .held = {}};
    if (layout_.held_) picture.held = [held = layout_.held_, file] { return held(file); };
    putItem(std::move(picture), element);
}

ReportLayout::ReportLayout(const ReportDefinition &definition, const ReportData &data,
                           const QHash<QString, QString> &parameters, const QDate &today, QString nothing,
                           HeldPictures held)
    : definition_(definition),
      data_(data),
      parameters_(parameters),
      date_(today.toString(u"dd-MM-yyyy"_s)),
      today_(today.toString(definition.dayFormat)),
      nothing_(std::move(nothing)),
      notice_(noticeOn(definition)),
      held_(std::move(held))
{
}

ReportLayout::Laid ReportLayout::layOut(const Place &start, const Numbers &numbers)
{
    return Sheet(*this, start, numbers).fill();
}

const ReportBand &ReportLayout::bandAt(std::size_t band) const
{
    if (band == 0) return definition_.reportHeader;
    return band == lastBand() ? definition_.reportFooter : definition_.detail;
}

std::optional<std::size_t> ReportLayout::recordOf(std::size_t band) const
{
    if (data_.size() == 0) return std::nullopt;
    return std::clamp<std::size_t>(band, 1, data_.size()) - 1;
}

QString ReportLayout::textOf(const ReportText &text, std::size_t band, const Numbers &numbers) const
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
         .page = numbers.page,
         .pages = numbers.pages,
         .date = date_,
         .pageOfPages =
             definition_.pageOfPages.arg(numbers.page, numbers.pages.isEmpty() ? u"…"_s : numbers.pages),
         .today = today_});
}

bool ReportLayout::closedUp(const ReportRow &row, std::size_t band) const
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
double ReportLayout::fixedHeight(const ReportBand &band, std::size_t number) const
{
    double height = 0;
    for (const ReportRow &row : band.rows)
        if (!closedUp(row, number)) height = std::max(height, row.from) + row.height;
    return std::max(height, band.height);
}

// The same with what grows; a rule at the end is dropped where it has no room, so it needs none.
double ReportLayout::wholeHeight(const ReportBand &band, std::size_t number, const Numbers &numbers)
{
    double height = 0;
    double needed = band.height;
    for (const ReportRow &row : band.rows) {
        if (closedUp(row, number)) continue;
        height = std::max(height, row.from);
        double own = row.height;
        for (const ReportElement &element : row.elements) {
            if (!element.grows) continue;
            const auto lines = static_cast<double>(grownLines(element, number, numbers).size());
            const double spare = std::max(0.0, row.height - element.area.bottom());
            own = std::max(own, element.area.top() + lines * lines_.measure(element).spacing() + spare);
        }
        height += own;
        if (!row.onlyDrawn()) needed = std::max(needed, height);
    }
    return needed;
}

// A text that grows breaks its lines alike on all of its pages, so it cannot show their number.
const QStringList &ReportLayout::grownLines(const ReportElement &element, std::size_t band,
                                            const Numbers &numbers)
{
    if (grownBand_ != band) grown_.clear();
    grownBand_ = band;
    const auto found = grown_.find(&element);
    if (found != grown_.end()) return found->second;
    return grown_[&element] =
               lines_.all(element, textOf(element.text, band, {.page = {}, .pages = numbers.pages}));
}
