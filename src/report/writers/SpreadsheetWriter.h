// The rows of a report as a workbook that spreadsheet programs open without a question.
#pragma once

class QByteArray;
struct ReportRows;

// Heads in the first row, which stays in view and begins each printed page; every cell is text. A cell takes
// 32,767 characters: a longer text is cut there and ends in an ellipsis. More rows than a sheet takes go on
// in further sheets.
QByteArray spreadsheetContent(const ReportRows &rows);
