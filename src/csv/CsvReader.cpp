#include "csv/CsvReader.h"

#include "csv/CsvCells.h"
#include "csv/CsvDetection.h"

CsvTable readCsv(const QByteArray &file, const CsvChoice &choice)
{
    CsvText found = choice.encoding.isEmpty() ? csvText(file) : csvText(file, choice.encoding);
    QChar delimiter = takeSeparatorLine(found.text);
    if (!choice.delimiter.isNull()) delimiter = choice.delimiter;
    if (delimiter.isNull()) delimiter = csvDelimiter(found.text);
    CsvTable table{found.encoding, delimiter, false, csvCells(found.text, delimiter)};
    for (QStringList &row : table.rows)
        for (QString &cell : row)
            cell = unguardedCell(cell);
    table.hasHeader = choice.hasHeader.value_or(!table.rows.empty() && isHeaderRow(table.rows.front()));
    return table;
}
