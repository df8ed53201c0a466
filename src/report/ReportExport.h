// Writes the rows of a report to a file that a spreadsheet, a word processor or an editor opens.
#pragma once

#include "report/ReportRows.h"

// The type is one of ReportControl::FileType. An existing file is replaced in one step, or not at all. Raises
// Failure for a type that is none of them and for a file that can't be written.
void exportReport(int fileType, const ReportRows &rows, const QString &path);
