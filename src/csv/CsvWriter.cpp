#include "csv/CsvWriter.h"

#include "csv/CsvCells.h"

QByteArray writtenCsv(const std::vector<QStringList> &rows, CsvDialect dialect)
{
    const bool isForExcel = dialect == CsvDialect::Excel;
    const char delimiter = isForExcel ? ';' : ',';
    QByteArray bytes = isForExcel ? "\xEF\xBB\xBF" : "";
    for (const QStringList &row : rows) {
        QByteArrayList cells;
        for (const QString &cell : row)
            cells << '"' + guardedCell(cell).replace(u'"', QStringLiteral("\"\"")).toUtf8() + '"';
        bytes += cells.join(delimiter) + "\r\n";
    }
    return bytes;
}
