#include "report/ReportDefinition.h"

#include "platform/Failure.h"
#include "report/DefinitionXml.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
constexpr double standardSize = 10; // points

struct Paper {
    QLatin1StringView name;
    QPageSize::PageSizeId size;
};
constexpr std::array papers{Paper{"A4"_L1, QPageSize::A4},         Paper{"A5"_L1, QPageSize::A5},
                            Paper{"A6"_L1, QPageSize::A6},         Paper{"Letter"_L1, QPageSize::Letter},
                            Paper{"Legal"_L1, QPageSize::Legal},   Paper{"DL"_L1, QPageSize::EnvelopeDL},
                            Paper{"C5"_L1, QPageSize::EnvelopeC5}, Paper{"C6"_L1, QPageSize::EnvelopeC6}};

struct Style {
    QFont font;
    unsigned colour = 0;
};

QFont fontOf(const QString &family, double points, bool bold, bool italic)
{
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(qRound(points * twipsPerPoint));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

// Reads the file once from its beginning to its end. Whatever it doesn't know is an error where it stands.
class Reader : private DefinitionXml
{
public:
    Reader(const QByteArray &bytes, const QString &path) : DefinitionXml(bytes, path)
    {
        definition_.path = path;
    }

    ReportDefinition report();

private:
    void element(QStringView name);
    void paper();
    void font();
    void parameter();
    void texts();
    void lookup();
    void band(ReportBand &band, bool flows);
    void detail();
    void sideBySide(ReportBand &band);
    void checkSideBySide() const;
    ReportRow row(bool flows);
    ReportElement readElement(bool flows);
    void readText(ReportElement &read, bool flows);
    Style style(const QString &name) const;
    ReportText places(const QString &source);
    std::size_t fieldNumber(const ReportField &field);
    void checkReadable(double points) const;
    void checkTexts() const;
    void checkRoom() const;

    QHash<QString, Style> styles_;
    ReportDefinition definition_;
};

ReportDefinition Reader::report()
{
    if (!child() || name() != "report"_L1) raise(u"The file is no report: it doesn't begin with <report>"_s);
    begin();
    definition_.title = text("title");
    definition_.texts.title = textNumber();
    definition_.table = needed("table");
    end();
    while (child())
        element(name());
    rest();
    checkTexts();
    checkRoom();
    checkSideBySide();
    return std::move(definition_);
}

void Reader::element(QStringView name)
{
    constexpr bool flows = true;
    begin();
    if (name == "paper"_L1) return paper();
    if (name == "font"_L1) return font();
    if (name == "parameter"_L1) return parameter();
    if (name == "texts"_L1) return texts();
    if (name == "lookup"_L1) return lookup();
    if (name == "reportheader"_L1) return band(definition_.reportHeader, flows);
    if (name == "pageheader"_L1) return band(definition_.pageHeader, !flows);
    if (name == "continued"_L1) return band(definition_.continued, !flows);
    if (name == "detail"_L1) return detail();
    if (name == "pagefooter"_L1) return band(definition_.pageFooter, !flows);
    if (name == "reportfooter"_L1) return band(definition_.reportFooter, flows);
    raise(u"<%1> doesn't belong here"_s.arg(name));
}

void Reader::paper()
{
    const QString name = text("size", u"A4"_s);
    const auto found =
        std::find_if(papers.begin(), papers.end(), [&](const Paper &p) { return name == p.name; });
    if (found == papers.end()) raise(u"There is no paper %1"_s.arg(name));
    definition_.pageSize = QPageSize(found->size);
    const QString orientation = text("orientation", u"portrait"_s);
    if (orientation != "portrait"_L1 && orientation != "landscape"_L1)
        raise(u"The orientation is portrait or landscape, not %1"_s.arg(orientation));
    definition_.landscape = orientation == "landscape"_L1;
    definition_.margins = {length("left"), length("top"), length("right"), length("bottom")};
    empty();
}

void Reader::checkReadable(double points) const
{
    if (points < 1) raise(u"A font of %1 points can't be read"_s.arg(points));
}

void Reader::font()
{
    const QString name = needed("name");
    const double points = length("size", standardSize);
    checkReadable(points);
    const QString family = text("family", u"Sans Serif"_s);
    const bool bold = flag("bold");
    styles_[name] = {fontOf(family, points, bold, flag("italic")), colour("colour", 0)};
    empty();
}

void Reader::parameter()
{
    const QString name = needed("name");
    definition_.parameters[name] = text("default");
    const int number = textNumber();
    if (number != 0) definition_.texts.parameters[name] = number;
    empty();
}

void Reader::texts()
{
    definition_.texts.table = needed("table");
    definition_.texts.key = needed("key");
    empty();
}

void Reader::lookup()
{
    ReportLookup lookup{
        .table = needed("table"), .key = needed("key"), .field = {}, .value = needed("equals")};
    const QString own = u'{' + definition_.table + u'.';
    if (lookup.value.startsWith(own) && lookup.value.endsWith(u'}'))
        lookup.field = lookup.value.mid(own.size(), lookup.value.size() - own.size() - 1);
    else if (lookup.value.startsWith(u'{'))
        raise(u"A look-up follows a field of %1 or a fixed value, not %2"_s.arg(definition_.table,
                                                                                lookup.value));
    definition_.lookups.push_back(std::move(lookup));
    empty();
}

void Reader::band(ReportBand &band, bool flows)
{
    band.height = length("height");
    band.newPage = flag("newpage");
    end();
    while (child()) {
        if (name() != "row"_L1) raise(u"A band holds rows, not <%1>"_s.arg(name()));
        band.rows.push_back(row(flows));
    }
    if (!flows) band.height = std::max(band.height, band.rowsHeight());
}

void Reader::detail()
{
    constexpr bool flows = true;
    definition_.detail.together = flag("together");
    sideBySide(definition_.detail);
    band(definition_.detail, flows);
}

void Reader::sideBySide(ReportBand &band)
{
    constexpr int most = 20;
    const QString number = text("columns", u"1"_s);
    bool valid = false;
    band.columns = number.toInt(&valid);
    if (!valid || band.columns < 1 || band.columns > most)
        raise(u"\"columns\" is a number from 1 to %1, not %2"_s.arg(most).arg(number));
    band.width = length("width");
    band.first = text("first");
    if (band.columns > 1 && band.width == 0) raise(u"Columns need the attribute \"width\""_s);
    if (!band.first.isEmpty() && !definition_.parameters.contains(band.first))
        raise(u"There is no parameter %1"_s.arg(band.first));
}

// A place among others is as large as they are.
void Reader::checkSideBySide() const
{
    const ReportBand &detail = definition_.detail;
    if (detail.columns == 1) return;
    if (detail.height == 0) raise(u"Columns need the attribute \"height\""_s);
    if (detail.newPage) raise(u"What stands in columns can't begin a page each"_s);
    if (std::any_of(detail.rows.begin(), detail.rows.end(), [](const ReportRow &row) { return row.grows(); }))
        raise(u"Nothing can grow in columns"_s);
}

ReportRow Reader::row(bool flows)
{
    begin();
    ReportRow row{
        .height = length("height"), .from = length("from"), .closesUp = flag("closeup"), .elements = {}};
    if ((row.closesUp || row.from > 0) && !flows)
        raise(u"The rows of page header and footer stay where they are"_s);
    end();
    while (child())
        row.elements.push_back(readElement(flows));
    return row;
}

ReportElement Reader::readElement(bool flows)
{
    constexpr double hairline = 10;
    begin();
    ReportElement read;
    const QStringView element = name();
    const Style basis = style(text("font"));
    read.font = basis.font;
    read.area = {length("left"), length("top"), length("width"), length("height")};
    read.colour = colour("colour", basis.colour);
    read.thickness = length("thickness", hairline);
    const QString on = text("on", u"all"_s);
    if (on != "all"_L1 && on != "screen"_L1) raise(u"\"on\" is all or screen, not %1"_s.arg(on));
    read.screenOnly = on == "screen"_L1;

    if (element == "text"_L1) {
        readText(read, flows);
    } else if (element == "picture"_L1) {
        read.kind = ReportElement::Picture;
        read.fallback = text("fallback");
        end();
        read.text = places(content());
    } else if (element == "line"_L1 || element == "box"_L1) {
        read.kind = element == "line"_L1 ? ReportElement::Line : ReportElement::Box;
        empty();
    } else {
        raise(u"A row holds text, line, box and picture, not <%1>"_s.arg(element));
    }
    return read;
}

void Reader::readText(ReportElement &read, bool flows)
{
    static const QHash<QString, Qt::AlignmentFlag> sides{
        {u"left"_s, Qt::AlignLeft}, {u"centre"_s, Qt::AlignHCenter}, {u"right"_s, Qt::AlignRight}};
    const QString side = text("align", u"left"_s);
    if (!sides.contains(side)) raise(u"Text is aligned left, centre or right, not %1"_s.arg(side));
    read.align = sides[side];
    read.grows = flag("grow");
    if (read.grows && !flows) raise(u"Nothing can grow in page header and footer"_s);
    read.least = length("least");
    if (read.least > 0) checkReadable(read.least);
    if (read.least > 0 && read.grows) raise(u"A text that grows has no need of \"least\""_s);
    read.dropsLines = flag("closelines");
    read.head = places(text("head"));
    end();
    read.text = places(content());
}

Style Reader::style(const QString &name) const
{
    if (name.isEmpty()) return {standardReportFont(), 0};
    if (!styles_.contains(name)) raise(u"There is no font of the name %1"_s.arg(name));
    return styles_[name];
}

ReportText Reader::places(const QString &source)
{
    checkXml();
    try {
        ReportText text(source, [this](const ReportField &field) { return fieldNumber(field); });
        for (const QString &name : text.parameters())
            if (!definition_.parameters.contains(name)) raise(u"There is no parameter %1"_s.arg(name));
        return text;
    } catch (const Failure &failure) {
        if (failure.source() == "ReportDefinition"_L1) throw;
        raise(failure.description());
    }
}

std::size_t Reader::fieldNumber(const ReportField &field)
{
    const bool known = field.table == definition_.table ||
                       std::any_of(definition_.lookups.begin(), definition_.lookups.end(),
                                   [&](const ReportLookup &lookup) { return lookup.table == field.table; });
    if (!known) raise(u"%1 is neither the report's table nor looked up"_s.arg(field.table));
    const auto found = std::find(definition_.fields.begin(), definition_.fields.end(), field);
    const auto number = static_cast<std::size_t>(found - definition_.fields.begin());
    if (found == definition_.fields.end()) definition_.fields.push_back(field);
    return number;
}

void Reader::checkTexts() const
{
    const ReportTexts &texts = definition_.texts;
    const bool named = texts.title != 0 || !texts.parameters.isEmpty();
    if (named && texts.table.isEmpty())
        raise(u"Texts are named by number, but no <texts> says where they are"_s);
}

void Reader::checkRoom() const
{
    constexpr double least = 200; // a line of text
    if (definition_.bodyHeight() - definition_.continued.height < least)
        raise(u"Margins, page header and page footer leave no room"_s);
}
} // namespace

QFont standardReportFont() { return fontOf(u"Sans Serif"_s, standardSize, false, false); }

bool ReportRow::grows() const
{
    return std::any_of(elements.begin(), elements.end(), [](const ReportElement &e) { return e.grows; });
}

bool ReportRow::onlyDrawn() const
{
    return !elements.empty() && std::all_of(elements.begin(), elements.end(), [](const ReportElement &e) {
        return e.kind == ReportElement::Line || e.kind == ReportElement::Box;
    });
}

double ReportBand::rowsHeight() const
{
    return std::accumulate(rows.begin(), rows.end(), 0.0,
                           [](double sum, const ReportRow &row) { return sum + row.height; });
}

QSizeF ReportDefinition::paper() const
{
    constexpr double twipsPerPostscriptPoint = 20;
    const QSizeF upright = pageSize.size(QPageSize::Point) * twipsPerPostscriptPoint;
    const bool turned = landscape == (upright.width() < upright.height());
    return turned ? upright.transposed() : upright;
}

double ReportDefinition::bodyHeight() const
{
    return paper().height() - margins.top() - margins.bottom() - pageHeader.height - pageFooter.height;
}

bool ReportDefinition::canLose() const
{
    const auto hasLines = [](const ReportElement &element) {
        const bool severalLines = element.area.height() >= 2 * element.font.pixelSize();
        return element.kind == ReportElement::Text && !element.grows && (severalLines || element.least > 0);
    };
    const auto inBand = [&](const ReportBand *band) {
        return std::any_of(band->rows.begin(), band->rows.end(), [&](const ReportRow &row) {
            return std::any_of(row.elements.begin(), row.elements.end(), hasLines);
        });
    };
    const std::array bands{&reportHeader, &pageHeader, &continued, &detail, &pageFooter, &reportFooter};
    return std::any_of(bands.begin(), bands.end(), inBand);
}

ReportDefinition readReportDefinition(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        throw Failure(Failure::FileNotFound, path, u"The report was not found: %1"_s.arg(path));
    return Reader(file.readAll(), path).report();
}
