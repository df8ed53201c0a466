#include "report/ReportLines.h"

#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace
{
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

// The blank at which a line was broken takes no room behind it.
QString withoutEnd(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

QStringList broken(const QString &paragraph, const QFont &font, double width)
{
    QStringList lines;
    QTextLayout layout(paragraph, font);
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << withoutEnd(paragraph.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    return lines;
}
} // namespace

FontMeasure::FontMeasure(const QFont &font) : metrics_(font), spacing_(metrics_.lineSpacing()) {}

double FontMeasure::advance(const QString &text)
{
    double sum = 0;
    for (const QChar sign : text) {
        const bool joins = sign.unicode() >= 0x300 && sign.isMark();
        if (joins || !LetterWidths::holds(sign.unicode())) return metrics_.horizontalAdvance(text);
        sum += letters_.of(sign.unicode(), [&] { return metrics_.horizontalAdvance(sign); });
    }
    return sum;
}

QString FontMeasure::elided(const QString &line, double width) const
{
    return metrics_.elidedText(line, Qt::ElideRight, width);
}

FontMeasure &ReportLines::measure(const ReportElement &element, const QFont &font)
{
    if (font == element.font) return measures_.try_emplace(&element, font).first->second;
    return smaller_.try_emplace({&element, font.pixelSize()}, font).first->second;
}

QStringList ReportLines::all(const ReportElement &element, const QString &text)
{
    return all(element, element.font, text);
}

QStringList ReportLines::all(const ReportElement &element, const QFont &font, const QString &text)
{
    QStringList lines;
    for (const QString &paragraph : paragraphs(element, text)) {
        const QString whole = oneLine(paragraph);
        if (measure(element, font).advance(whole) <= element.area.width())
            lines << whole;
        else
            lines << broken(whole, font, element.area.width());
    }
    return lines;
}

qsizetype ReportLines::room(const ReportElement &element, const QFont &font)
{
    return static_cast<qsizetype>(element.area.height() / measure(element, font).spacing());
}

QString ReportLines::single(const ReportElement &element, const QString &text)
{
    const QString whole = oneLine(text);
    FontMeasure &own = measure(element);
    const bool fits = own.advance(whole) <= element.area.width();
    return fits ? whole : own.elided(whole, element.area.width());
}

ReportLines::Fitted ReportLines::fitting(const ReportElement &element, const QString &text)
{
    constexpr int step = twipsPerPoint / 2;
    QFont font = element.font;
    if (element.least == 0 && room(element, font) <= 1)
        return {.lines = {single(element, text)}, .font = font, .lost = {}};
    const int least = qRound(element.least * twipsPerPoint);
    QStringList lines = all(element, font, text);
    while (element.least > 0 && lines.size() > room(element, font) && font.pixelSize() > least) {
        font.setPixelSize(std::max(font.pixelSize() - step, least));
        lines = all(element, font, text);
    }
    const qsizetype shown = std::min(lines.size(), room(element, font));
    return {.lines = lines.first(shown), .font = font, .lost = lines.sliced(shown)};
}
