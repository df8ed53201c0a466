// The preview's and the printer's own words, in each language. What a report shows comes from its definition
// alone.
#pragma once

#include <QString>

enum class ReportWord {
    First,
    Previous,
    Next,
    Last,
    Page,
    ZoomIn,
    ZoomOut,
    FitWidth,
    WholePage,
    Print,
    SavePdf,
    Refresh,
    Search,
    Close,
    Printing,
    Cancel,
    NoPrinter,
    Rejected,
    NotWritten,
    Empty,
    DoesNotFit,
    PageOfPages, // %1 the page, %2 how many there are
    DayFormat,   // the order of a date, as QDate takes it
};

// The language by its name ("AlemaoDE"); an unknown one reads as English.
QString reportWord(ReportWord word, const QString &language);
