// What a report looks like: the file that a person may change, as docs/reports.md tells. All lengths are
// twips.
#pragma once

#include "report/ReportText.h"

#include <QFont>
#include <QHash>
#include <QMarginsF>
#include <QPageSize>
#include <QRectF>
#include <vector>

constexpr int twipsPerPoint = 20;

// What a text is written in that names no font.
QFont standardReportFont();

struct ReportElement {
    enum Kind { Text, Line, Box, Picture };

    Kind kind = Text;
    QRectF area;     // within its row
    ReportText text; // of a picture: its file
    ReportText head; // what stands over the column in an exported file
    QFont font;
    unsigned colour = 0; // as 0xRRGGBB
    Qt::Alignment align = Qt::AlignLeft;
    double thickness = 0;
    bool grows = false;      // as tall as its text needs, over pages if it must
    double least = 0;        // points: what doesn't fit is written smaller, down to this; 0: it isn't
    bool dropsLines = false; // blank lines within the text close up
    bool screenOnly = false; // shown in the preview and never printed
    QString fallback;        // the picture that stands in for a missing one
};

// Elements that stand side by side and go to the next page together, unless one of them grows.
struct ReportRow {
    double height = 0;
    double from = 0;       // begins no nearer than this to the beginning of its band
    bool closesUp = false; // takes no room when all its fields are empty
    bool grows() const;
    bool onlyDrawn() const; // lines or boxes, and neither a text nor a picture
    std::vector<ReportElement> elements;
};

struct ReportBand {
    double height = 0;     // at least
    bool newPage = false;  // each begins a page
    bool together = false; // goes to the next page whole, unless it is longer than a page
    int columns = 1;       // as many stand side by side, each as wide as "width"
    double width = 0;
    QString first; // the parameter that says at which place of the first page the first one stands, from 1
    std::vector<ReportRow> rows;

    double rowsHeight() const;
};

// A row of another table that a record points at: the one whose key equals a field of the report's table, or
// a fixed number or text.
struct ReportLookup {
    QString table;
    QString key;
    QString field; // of the report's table; empty: the value
    QString value;
};

// The table in which the program keeps its texts: a row for each number, a column for each language by its
// name.
struct ReportTexts {
    QString table;
    QString key;
    int title = 0;                  // the number of the text that names the report; 0: none
    QHash<QString, int> parameters; // that of each parameter that has one
};

struct ReportDefinition {
    QString path; // whence it came
    QString title;
    QString table;
    std::vector<ReportLookup> lookups;
    std::vector<ReportField> fields;    // each that is shown, once, in the order of the file
    QHash<QString, QString> parameters; // with their defaults
    ReportTexts texts;
    QString pageOfPages = QStringLiteral("%1 / %2");  // how the language says it
    QString dayFormat = QStringLiteral("dd-MM-yyyy"); // as QDate takes it

    QPageSize pageSize{QPageSize::A4};
    bool landscape = false;
    QMarginsF margins;

    ReportBand reportHeader;
    ReportBand pageHeader;
    ReportBand continued; // over the rest of a record that began on an earlier page
    ReportBand detail;
    ReportBand pageFooter;
    ReportBand reportFooter;

    QSizeF paper() const;      // as it is held: a landscape sheet is wider than high
    double bodyHeight() const; // between page header and footer
    bool canLose() const;      // whether a text has room for some lines, and so may have too many
};

// Raises Failure for a file that is missing, and for one that is broken: then with line and column.
ReportDefinition readReportDefinition(const QString &path);
