// The rows of a report as a document for a word processor.
#pragma once

class QByteArray;
struct ReportRows;

// Where all columns fit beside one another on a page, a line for each record under heads that come again on
// each page; otherwise one block of labelled lines for each record. Nothing is cut.
QByteArray documentContent(const ReportRows &rows);
