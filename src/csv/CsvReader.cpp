#include "csv/CsvReader.h"

#include "csv/CsvCells.h"
#include "csv/CsvDetection.h"

CsvTable readCsv(const QByteArray &file, const CsvChoice &choice)
{
    CsvText found = choice.encoding.isEmpty() ? csvText(file) : csvText(file, choice.encoding);
    QChar delimiter = takeSeparatorLine(found.text);
    if (!choice.delimiter.isNull()) delimiter = choice.delimiter;
    if (delimiter.isNull()) delimiter = csvDelimiter(found.text);
    std::vector<QStringList> rows = csvCells(found.text, delimiter);
    for (QStringList &row : rows)
        for (QString &cell : row)
            cell = unguardedCell(cell);
    const bool hasHeader = choice.hasHeader.value_or(!rows.empty() && isHeaderRow(rows.front()));
    return {found.encoding, delimiter, hasHeader, std::move(rows)};
}
