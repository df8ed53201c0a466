#include "csv/CsvWriter.h"

#include "csv/CsvCells.h"

QByteArray csvBeginning(CsvDialect dialect) { return dialect == CsvDialect::Excel ? "\xEF\xBB\xBF" : ""; }

QByteArray writtenCsvRow(const QStringList &row, CsvDialect dialect)
{
    QByteArrayList cells;
    for (const QString &cell : row)
        cells << '"' + guardedCell(cell).replace(u'"', QStringLiteral("\"\"")).toUtf8() + '"';
    return cells.join(dialect == CsvDialect::Excel ? ';' : ',') + "\r\n";
}

QByteArray writtenCsv(const std::vector<QStringList> &rows, CsvDialect dialect)
{
    QByteArray bytes = csvBeginning(dialect);
    for (const QStringList &row : rows)
        bytes += writtenCsvRow(row, dialect);
    return bytes;
}
