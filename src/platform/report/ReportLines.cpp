#include "platform/report/ReportLines.h"

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
        lines << paragraph.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return lines;
}
} // namespace

FontMeasure::FontMeasure(const QFont &font) : metrics_(font), spacing_(metrics_.lineSpacing())
{
    advances_.fill(unknown);
}

double FontMeasure::advance(const QString &text)
{
    double sum = 0;
    for (const QChar sign : text) {
        const bool joins = sign.unicode() >= 0x300 && sign.isMark();
        if (joins || sign.unicode() >= advances_.size()) return metrics_.horizontalAdvance(text);
        double &width = advances_[sign.unicode()];
        if (width == unknown) width = metrics_.horizontalAdvance(sign);
        sum += width;
    }
    return sum;
}

QString FontMeasure::elided(const QString &line, double width) const
{
    return metrics_.elidedText(line, Qt::ElideRight, width);
}

FontMeasure &ReportLines::measure(const ReportElement &element)
{
    return measures_.try_emplace(&element, element.font).first->second;
}

QStringList ReportLines::all(const ReportElement &element, const QString &text)
{
    QStringList lines;
    for (const QString &paragraph : paragraphs(element, text)) {
        const QString whole = oneLine(paragraph);
        if (measure(element).advance(whole) <= element.area.width())
            lines << whole;
        else
            lines << broken(whole, element.font, element.area.width());
    }
    return lines;
}

QStringList ReportLines::fitting(const ReportElement &element, const QString &text)
{
    FontMeasure &measured = measure(element);
    const auto room = static_cast<qsizetype>(element.area.height() / measured.spacing());
    if (room > 1) return all(element, text).mid(0, room);
    const QString whole = oneLine(text);
    if (measured.advance(whole) <= element.area.width()) return {whole};
    return {measured.elided(whole, element.area.width())};
}
