#include "report/writers/DocumentWriter.h"

#include "report/writers/ColumnWidths.h"
#include "report/writers/OfficeFont.h"
#include "report/ReportRows.h"
#include "report/writers/TextWidth.h"

#include <algorithm>
#include <QtMath>

namespace
{
// In twips.
constexpr int longSide = 16838, shortSide = 11906, margin = 1134, gap = 240;
constexpr int points = 9; // of the letters in lists and blocks
constexpr double narrowestColumn = 1800;
constexpr qsizetype mostLines = 3; // of a cell in a list

struct Measures {
    TextMeasure text{officeFont(points, QFont::Normal)};
    TextMeasure head{officeFont(points, QFont::Bold)};
};

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

std::vector<ColumnNeed> needsOf(const ReportRows &rows, const Measures &measures)
{
    std::vector<ColumnNeed> needs;
    for (qsizetype column = 0; column < rows.heads.size(); ++column) {
        const double head = measures.head.width(rows.heads[column]);
        ColumnNeed need{head, std::max(head, narrowestColumn)};
        for (const auto &record : rows.records) {
            const QString cell = untabbed(record[static_cast<std::size_t>(column)]);
            need.whole = std::max(need.whole, measures.text.width(cell));
            need.least = std::max(need.least, measures.text.widestWord(cell));
        }
        need.least = std::min(need.least, need.whole);
        needs.push_back(need);
    }
    return needs;
}

bool hasLines(const ReportRows &rows)
{
    return std::any_of(rows.records.begin(), rows.records.end(), [](const auto &record) {
        return std::any_of(record.begin(), record.end(),
                           [](const QString &cell) { return cell.contains(u'\n'); });
    });
}

// Page header and footer do not take over the font of the document, so each paragraph names it.
QByteArray paragraphBegin(int letters) { return "\\pard\\plain\\f0\\fs" + QByteArray::number(2 * letters); }

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
    document.append("\n{\\footer" + paragraphBegin(8) + "\\qc\\chpgn\\par}\n");
}

void putTitle(QByteArray &document, const QString &title)
{
    if (title.isEmpty()) return;
    document.append(paragraphBegin(14) + "\\sa240\\b ");
    putText(document, title);
    document.append("\\b0\\par\n");
}

// The records side by side with their heads, in columns of these widths.
struct List {
    bool landscape;
    std::vector<double> widths;
};

bool staysShort(const ReportRows &rows, const List &list, const TextMeasure &measure)
{
    return std::all_of(rows.records.begin(), rows.records.end(), [&](const auto &record) {
        for (std::size_t i = 0; i < list.widths.size(); ++i)
            if (measure.width(record[i]) > list.widths[i] &&
                measure.lines(record[i], list.widths[i]).size() > mostLines)
                return false;
        return true;
    });
}

// Nothing where the records stand in blocks. Without a record the heads are all that there is.
std::optional<List> listOf(const ReportRows &rows, const Measures &measures)
{
    if ((rows.sheets && !rows.records.empty()) || hasLines(rows)) return std::nullopt;
    const auto needs = needsOf(rows, measures);
    const double gaps = gap * (static_cast<double>(rows.heads.size()) - 1);
    double whole = gaps;
    for (const ColumnNeed &need : needs)
        whole += need.whole;
    const bool landscape = whole > shortSide - 2 * margin;
    const auto widths = columnWidths(needs, (landscape ? longSide : shortSide) - 2 * margin - gaps);
    if (!widths) return std::nullopt;
    List list{landscape, *widths};
    if (!staysShort(rows, list, measures.text)) return std::nullopt;
    return list;
}

// Heads and records of the list share one measure.
QByteArray listParagraph(const List &list)
{
    QByteArray paragraph = paragraphBegin(points);
    double stop = 0;
    for (std::size_t i = 0; i + 1 < list.widths.size(); ++i) {
        stop += list.widths[i] + gap;
        paragraph.append("\\tx").append(QByteArray::number(qFloor(stop)));
    }
    return paragraph;
}

template<class Cells> void putLine(QByteArray &document, const Cells &cells)
{
    bool behind = false;
    for (const QString &cell : cells) {
        if (std::exchange(behind, true)) document.append("\\tab ");
        putText(document, untabbed(cell));
    }
}

// What is too long for its column goes on below, where cells at the end that have come to theirs need no tab.
void putRecord(QByteArray &document, const std::vector<QString> &record, const List &list,
               const TextMeasure &measure)
{
    std::vector<QStringList> columns;
    qsizetype height = 1;
    for (std::size_t i = 0; i < list.widths.size(); ++i) {
        const QString cell = untabbed(record[i]);
        columns.push_back(measure.width(cell) > list.widths[i] ? measure.lines(cell, list.widths[i])
                                                               : QStringList{cell});
        height = std::max(height, columns.back().size());
    }
    for (qsizetype line = 0; line < height; ++line) {
        QStringList cells;
        for (const QStringList &column : columns)
            cells << column.value(line);
        while (line > 0 && cells.last().isEmpty())
            cells.removeLast();
        if (line > 0) document.append("\\line ");
        putLine(document, cells);
    }
    document.append("\\par\n");
}

void putList(QByteArray &document, const ReportRows &rows, const List &list, const TextMeasure &measure)
{
    const QByteArray paragraph = listParagraph(list);
    document.append("{\\header").append(paragraph).append("\\sa120\\brdrb\\brdrs\\brdrw10\\b ");
    putLine(document, rows.heads);
    document.append("\\b0\\par}\n");
    putTitle(document, rows.title);
    document.append(paragraph).append(' ');
    for (const auto &record : rows.records)
        putRecord(document, record, list, measure);
}

// The first line of a block stands apart from the block before, and is not left behind at the end of a page.
void putBlocks(QByteArray &document, const ReportRows &rows, const TextMeasure &labels)
{
    double widest = 0;
    for (const QString &head : rows.heads)
        widest = std::max(widest, labels.width(head));
    const QByteArray place = QByteArray::number(qCeil(widest) + gap);
    const QByteArray paragraph = paragraphBegin(points) + "\\li" + place + "\\fi-" + place + "\\tx" + place;
    putTitle(document, rows.title);
    for (const auto &record : rows.records) {
        document.append(paragraph).append("\\keepn\\sb240 ");
        bool first = true;
        for (std::size_t i = 0; i < record.size(); ++i) {
            if (record[i].isEmpty()) continue;
            if (!std::exchange(first, false)) document.append("\\keepn0\\sb0 ");
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
    const Measures measures;
    const auto list = listOf(rows, measures);
    QByteArray document;
    putPage(document, list && list->landscape);
    if (list)
        putList(document, rows, *list, measures.text);
    else
        putBlocks(document, rows, measures.head);
    document.append('}');
    return document;
}
