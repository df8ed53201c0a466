#include "report/writers/TextWriter.h"

#include "report/writers/ColumnWidths.h"
#include "report/ReportRows.h"
#include "report/writers/TextWidth.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// In letters. A list is as wide as a window over the whole screen shows it, a block as an eye follows lines.
constexpr int widestList = 160, widestBlock = 80;
constexpr int widestColumn = 60, narrowestColumn = 24;
constexpr int gap = 2;

using Cells = std::vector<QString>;

Cells cells(const QStringList &texts) { return {texts.begin(), texts.end()}; }

std::vector<ColumnNeed> needsOf(const ReportRows &rows)
{
    const TextMeasure measure;
    std::vector<ColumnNeed> needs(static_cast<std::size_t>(rows.heads.size()));
    const auto widen = [&](const Cells &record) {
        for (std::size_t i = 0; i < std::min(record.size(), needs.size()); ++i) {
            needs[i].whole =
                std::max(needs[i].whole, std::min<double>(widestColumn, measure.width(record[i])));
            needs[i].least = std::max(needs[i].least, measure.widestWord(record[i]));
        }
    };
    widen(cells(rows.heads));
    for (const Cells &record : rows.records)
        widen(record);
    for (ColumnNeed &need : needs)
        need.least = std::min(need.whole, std::max<double>(need.least, narrowestColumn));
    return needs;
}

// The columns of a list; nothing where the records stand in blocks. Without a record the heads are all that
// there is.
std::optional<std::vector<int>> listWidths(const ReportRows &rows)
{
    if (rows.sheets && !rows.records.empty()) return std::nullopt;
    const auto widths =
        columnWidths(needsOf(rows), widestList - gap * (static_cast<double>(rows.heads.size()) - 1));
    if (!widths) return std::nullopt;
    return std::vector<int>(widths->begin(), widths->end());
}

void putLine(QByteArray &file, QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    file.append(line.toUtf8());
    file.append("\r\n");
}

// The cells beside one another, as many lines as the longest of them takes.
void putBeside(QByteArray &file, const Cells &record, const std::vector<int> &widths)
{
    std::vector<QStringList> columns;
    qsizetype height = 1;
    for (std::size_t i = 0; i < std::min(record.size(), widths.size()); ++i) {
        columns.push_back(wrappedLines(untabbed(record[i]), widths[i]));
        height = std::max(height, columns.back().size());
    }
    for (qsizetype row = 0; row < height; ++row) {
        QString line;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const QString piece = columns[i].value(row);
            line += piece + QString(std::max(0, widths[i] - textWidth(piece)) + gap, u' ');
        }
        putLine(file, line);
    }
}

void putRule(QByteArray &file, const std::vector<int> &widths)
{
    QStringList dashes;
    for (const int width : widths)
        dashes << QString(width, u'-');
    putLine(file, dashes.join(QString(gap, u' ')));
}

void putList(QByteArray &file, const ReportRows &rows, const std::vector<int> &widths)
{
    putBeside(file, cells(rows.heads), widths);
    putRule(file, widths);
    for (const Cells &record : rows.records)
        putBeside(file, record, widths);
}

// What is empty takes no line.
void putBlocks(QByteArray &file, const ReportRows &rows)
{
    int labels = 0;
    for (const QString &head : rows.heads)
        labels = std::max(labels, std::min(textWidth(head), widestBlock / 2));
    bool behind = false;
    for (const Cells &record : rows.records) {
        if (std::exchange(behind, true)) putLine(file, {});
        for (std::size_t i = 0; i < record.size(); ++i)
            if (!record[i].isEmpty())
                putBeside(file, {rows.heads[static_cast<qsizetype>(i)], record[i]},
                          {labels, widestBlock - labels - gap});
    }
}
} // namespace

QByteArray textContent(const ReportRows &rows)
{
    QByteArray file("\xEF\xBB\xBF");
    if (!rows.title.isEmpty()) {
        putLine(file, rows.title);
        putLine(file, {});
    }
    const auto widths = listWidths(rows);
    if (widths)
        putList(file, rows, *widths);
    else
        putBlocks(file, rows);
    return file;
}
