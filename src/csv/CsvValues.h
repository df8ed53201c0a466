// Cells that spreadsheets and programs have turned into something else: numbers in scientific notation, dates
// in the order of somebody's country.
#pragma once

#include <optional>
#include <QString>
#include <QStringList>

// "3,51912E+11": a telephone number of which the last digits are lost.
bool isScientificNumber(const QString &cell);

enum class DateOrder { DayFirst, MonthFirst };

struct CsvDate {
    int day = 0;
    int month = 0;
    int year = 0; // always of four digits; 0 where there is none

    bool operator==(const CsvDate &) const = default;
};

// The order that the dates of a whole column have, told by numbers above twelve; the usual one where none is
// there, or where they contradict each other.
DateOrder dateOrder(const QStringList &column, DateOrder usual);

// "1975-03-04", "--03-04", "4/3/1975", "4.3.75", "4-3". A year of two digits is not after thisYear. Nothing for what is
// no date, such as the "0/0/00" of an empty one.
std::optional<CsvDate> csvDate(const QString &cell, DateOrder order, int thisYear);
