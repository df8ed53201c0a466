// One sheet of a workbook: the cells of its records, how wide and high they are, and how it prints.
#pragma once

#include <cstddef>

class QByteArray;
class SharedStrings;
struct ReportRows;

namespace workbook
{
constexpr int letterPoints = 10;
}

// As many as it takes for all records; at least one, for the heads.
std::size_t workbookSheets(const ReportRows &rows);

// The records of the sheet of that number, counted from 0. Columns are as wide as what they hold, up to a
// measure beyond which texts wrap, and rows as high as the lines of their cells, as far as the format goes.
// Printed, all columns stand on one page.
QByteArray workbookSheet(const ReportRows &rows, std::size_t number, SharedStrings &strings);
