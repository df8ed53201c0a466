// The rows of a report as a document for a word processor.
#pragma once

class QByteArray;
struct ReportRows;

// A list has a line for each record under heads that come again on each page. Columns are as wide as what
// they hold in the document's font; where the page is too narrow for that, the widest give way and their
// texts go on in a second and third line. Sheets, lists that need more, and records with lines of their own
// are one block of labelled lines for each record. Nothing is cut.
QByteArray documentContent(const ReportRows &rows);
