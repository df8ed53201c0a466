#include "platform/report/TextWriter.h"

#include "platform/report/ReportRows.h"
#include "platform/report/TextWidth.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int widestColumn = 60;
constexpr int gap = 2;

std::vector<QString> cells(const QStringList &texts) { return {texts.begin(), texts.end()}; }

std::vector<int> columnWidths(const ReportRows &rows)
{
    std::vector<int> widths(static_cast<std::size_t>(rows.heads.size()), 0);
    const auto measure = [&](const std::vector<QString> &record) {
        for (std::size_t i = 0; i < std::min(record.size(), widths.size()); ++i)
            widths[i] = std::max(widths[i], std::min(widestColumn, textWidth(record[i])));
    };
    measure(cells(rows.heads));
    for (const auto &record : rows.records)
        measure(record);
    return widths;
}

void putLine(QByteArray &file, QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    file.append(line.toUtf8());
    file.append("\r\n");
}

// A record takes as many lines as its longest cell.
void putRecord(QByteArray &file, const std::vector<QString> &record, const std::vector<int> &widths)
{
    std::vector<QStringList> columns;
    qsizetype height = 1;
    for (const QString &cell : record) {
        columns.push_back(wrappedLines(QString(cell).replace(u'\t', u' '), widestColumn));
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
} // namespace

QByteArray textContent(const ReportRows &rows)
{
    const std::vector<int> widths = columnWidths(rows);
    QByteArray file("\xEF\xBB\xBF");
    if (!rows.title.isEmpty()) {
        putLine(file, rows.title);
        putLine(file, {});
    }
    putRecord(file, cells(rows.heads), widths);
    putRule(file, widths);
    for (const auto &record : rows.records)
        putRecord(file, record, widths);
    return file;
}
