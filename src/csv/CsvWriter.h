// Writes a table so that the program it is for opens it without a question.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <vector>

enum class CsvDialect {
    Excel, // semicolons, and a mark that says UTF-8
    Plain, // commas, no mark: web books and mail programs
};

// Every cell is quoted, lines end in CR LF, and nothing in a cell becomes a formula.
QByteArray writtenCsv(const std::vector<QStringList> &rows, CsvDialect dialect);

// The same for a table that is written row by row: what stands before the first one, and a row.
QByteArray csvBeginning(CsvDialect dialect);
QByteArray writtenCsvRow(const QStringList &row, CsvDialect dialect);
