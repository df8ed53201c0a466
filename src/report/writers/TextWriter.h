// The rows of a report as a text file for an editor.
#pragma once

class QByteArray;
struct ReportRows;

// UTF-8 with a byte order mark and line ends of CR LF; no line ends in blanks. Columns as wide as what they
// hold, up to a measure beyond which a text goes on in further lines of its column. Sheets, and lists too
// wide for a screen, are one block of labelled texts for each record. Nothing is cut.
QByteArray textContent(const ReportRows &rows);
