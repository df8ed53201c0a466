// The rows of a report as a text file for an editor.
#pragma once

class QByteArray;
struct ReportRows;

// UTF-8 with a byte order mark and line ends of CR LF. Columns as wide as what they hold, up to a measure
// beyond which a text goes on in further lines of its column: nothing is cut.
QByteArray textContent(const ReportRows &rows);
