#include "platform/report/DocumentWriter.h"

#include "platform/report/ReportRows.h"
#include "platform/report/TextWidth.h"

#include <algorithm>

namespace
{
// In twips. A letter of nine points is about half as wide as it is high.
constexpr int longSide = 16838, shortSide = 11906, margin = 1134, letter = 100, gap = 240;

// What the format's own letters and whatever lies outside of the first 128 become. Every other blank of
// several in a row is written by its number, for some readers widen two plain ones.
void putText(QByteArray &document, QStringView text)
{
    bool behindBlank = false;
    for (const QChar letter16 : text) {
        const char16_t unit = letter16.unicode();
        const bool plainBlank = unit == u' ' && !behindBlank;
        if (unit == u' ')
            document.append(plainBlank ? " " : "\\u32?");
        else if (unit == u'\n')
            document.append("\\line ");
        else if (unit == u'\t')
            document.append("\\tab ");
        else if (unit == u'\\' || unit == u'{' || unit == u'}')
            document.append('\\').append(static_cast<char>(unit));
        else if (unit >= 0x20 && unit < 0x7F)
            document.append(static_cast<char>(unit));
        else if (unit >= 0xA0 && unit <= 0xFF)
            document.append("\\'").append(QByteArray::number(unit, 16));
        else if (unit >= 0x80)
            document.append("\\u").append(QByteArray::number(static_cast<qint16>(unit))).append('?');
        behindBlank = plainBlank;
    }
}

// The place of each column's beginning, and behind them that of the end.
std::vector<int> columnStops(const ReportRows &rows)
{
    std::vector<int> stops{0};
    for (qsizetype column = 0; column < rows.heads.size(); ++column) {
        int width = textWidth(rows.heads[column]);
        for (const auto &record : rows.records)
            width = std::max(width, textWidth(record[static_cast<std::size_t>(column)]));
        stops.push_back(stops.back() + width * letter + gap);
    }
    return stops;
}

bool hasLines(const ReportRows &rows)
{
    return std::any_of(rows.records.begin(), rows.records.end(), [](const auto &record) {
        return std::any_of(record.begin(), record.end(),
                           [](const QString &cell) { return cell.contains(u'\n'); });
    });
}

void putPage(QByteArray &document, bool landscape)
{
    document.append("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\n");
    const auto measure = [&](const char *word, int twips) {
        document.append(word).append(QByteArray::number(twips));
    };
    measure("\\paperw", landscape ? longSide : shortSide);
    measure("\\paperh", landscape ? shortSide : longSide);
    for (const char *side : {"\\margl", "\\margr", "\\margt", "\\margb"})
        measure(side, margin);
    if (landscape) document.append("\\landscape");
    document.append("\n{\\footer\\pard\\qc\\fs16\\chpgn\\par}\n");
}

void putTitle(QByteArray &document, const QString &title)
{
    if (title.isEmpty()) return;
    document.append("\\pard\\sa240\\b\\fs28 ");
    putText(document, title);
    document.append("\\b0\\par\n");
}

// Heads and records of the list share one measure.
QByteArray listParagraph(const std::vector<int> &stops)
{
    QByteArray paragraph("\\pard\\fs18");
    for (std::size_t i = 1; i + 1 < stops.size(); ++i)
        paragraph.append("\\tx").append(QByteArray::number(stops[i]));
    return paragraph;
}

// A tab within a cell would move the cells behind it out of their columns.
template<class Cells> void putLine(QByteArray &document, const Cells &cells)
{
    bool behind = false;
    for (const QString &cell : cells) {
        if (std::exchange(behind, true)) document.append("\\tab ");
        putText(document, QString(cell).replace(u'\t', u' '));
    }
}

void putList(QByteArray &document, const ReportRows &rows, const std::vector<int> &stops)
{
    const QByteArray paragraph = listParagraph(stops);
    document.append("{\\header").append(paragraph).append("\\sa120\\brdrb\\brdrs\\brdrw10\\b ");
    putLine(document, rows.heads);
    document.append("\\b0\\par}\n");
    putTitle(document, rows.title);
    document.append(paragraph).append(' ');
    for (const auto &record : rows.records) {
        putLine(document, record);
        document.append("\\par\n");
    }
}

// The first line of a block stands apart from the block before.
void putBlocks(QByteArray &document, const ReportRows &rows)
{
    const auto labels =
        std::max_element(rows.heads.begin(), rows.heads.end(),
                         [](const auto &a, const auto &b) { return textWidth(a) < textWidth(b); });
    const int indent = labels == rows.heads.end() ? 0 : textWidth(*labels) * letter + gap;
    const QByteArray place = QByteArray::number(indent);
    const QByteArray paragraph = "\\pard\\fs18\\li" + place + "\\fi-" + place + "\\tx" + place;
    putTitle(document, rows.title);
    for (const auto &record : rows.records) {
        document.append(paragraph).append("\\sb240 ");
        bool first = true;
        for (std::size_t i = 0; i < record.size(); ++i) {
            if (record[i].isEmpty()) continue;
            if (!std::exchange(first, false)) document.append("\\sb0 ");
            document.append("{\\b ");
            putText(document, rows.heads[static_cast<qsizetype>(i)]);
            document.append("}\\tab ");
            putText(document, record[i]);
            document.append("\\par\n");
        }
    }
}
} // namespace

QByteArray documentContent(const ReportRows &rows)
{
    const std::vector<int> stops = columnStops(rows);
    const int width = stops.back();
    QByteArray document;
    if (width <= longSide - 2 * margin && !hasLines(rows)) {
        putPage(document, width > shortSide - 2 * margin);
        putList(document, rows, stops);
    } else {
        putPage(document, false);
        putBlocks(document, rows);
    }
    document.append('}');
    return document;
}
