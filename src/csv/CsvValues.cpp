#include "csv/CsvValues.h"

#include <QDate>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
struct Numbers {
    int first = 0;
    int second = 0;
    int year = 0;
    qsizetype yearDigits = 0;
};

// The numbers of a date that does not begin with the year, in the order in which they stand.
std::optional<Numbers> numbersOf(const QString &cell)
{
    static const QRegularExpression form(
        u"^(\\d{1,2})([/.-])(\\d{1,2})(?:\\2(\\d{4}|\\d{2}))?\\.?(?: .*)?$"_s);
    const QRegularExpressionMatch found = form.match(cell.trimmed());
    if (!found.hasMatch()) return {};
    return Numbers{found.captured(1).toInt(), found.captured(3).toInt(), found.captured(4).toInt(),
                   found.capturedLength(4)};
}

int wholeYear(const Numbers &numbers, int thisYear)
{
    if (numbers.yearDigits != 2) return numbers.year;
    const int century = thisYear - thisYear % 100;
    return century + numbers.year > thisYear ? century - 100 + numbers.year : century + numbers.year;
}

std::optional<CsvDate> checked(const CsvDate &date)
{
    constexpr int leapYear = 1604; // a day that a year without a name may have
    if (!QDate(date.year == 0 ? leapYear : date.year, date.month, date.day).isValid()) return {};
    return date;
}
} // namespace

bool isScientificNumber(const QString &cell)
{
    static const QRegularExpression form(u"^\\d[,.]\\d+E\\+\\d+$"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return form.match(cell.trimmed()).hasMatch();
}

DateOrder dateOrder(const QStringList &column, DateOrder usual)
{
    constexpr int months = 12;
    bool isDayFirst = false;
    bool isMonthFirst = false;
    for (const QString &cell : column) {
        const auto numbers = numbersOf(cell);
        if (!numbers) continue;
        isDayFirst = isDayFirst || (numbers->first > months && numbers->second <= months);
        isMonthFirst = isMonthFirst || (numbers->second > months && numbers->first <= months);
    }
    if (isDayFirst == isMonthFirst) return usual;
    return isDayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

std::optional<CsvDate> csvDate(const QString &cell, DateOrder order, int thisYear)
{
    static const QRegularExpression iso(u"^(\\d{4})[-/.](\\d{1,2})[-/.](\\d{1,2})(?:[T ].*)?$"_s);
    const QRegularExpressionMatch found = iso.match(cell.trimmed());
    if (found.hasMatch()) {
        const CsvDate date{found.captured(3).toInt(), found.captured(2).toInt(), found.captured(1).toInt()};
        return date.year == 0 ? std::nullopt : checked(date);
    }
    static const QRegularExpression withoutYear(u"^--(\\d{2})-?(\\d{2})$"_s);
    const QRegularExpressionMatch yearless = withoutYear.match(cell.trimmed());
    if (yearless.hasMatch()) return checked({yearless.captured(2).toInt(), yearless.captured(1).toInt(), 0});
    const auto numbers = numbersOf(cell);
    if (!numbers) return {};
    const int year = wholeYear(*numbers, thisYear);
    const bool isDayFirst = order == DateOrder::DayFirst;
    return checked(
        {isDayFirst ? numbers->first : numbers->second, isDayFirst ? numbers->second : numbers->first, year});
}
