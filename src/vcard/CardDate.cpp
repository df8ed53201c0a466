#include "vcard/CardDate.h"

#include <QDate>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
constexpr int noYear = 1604; // a leap year, so the 29th of February can be written with it

bool exists(const CardDate &date)
{
    return QDate(date.year == 0 ? noYear : date.year, date.month, date.day).isValid();
}

QString digits(int number, int width) { return QString::number(number).rightJustified(width, u'0'); }
} // namespace

std::optional<CardDate> cardDate(const QString &text)
{
    static const QRegularExpression form(
        u"^(?:(\\d{4})-(\\d{1,2})-(\\d{1,2})|(\\d{4})(\\d{2})(\\d{2})|--(\\d{2})-?(\\d{2}))(?:[T ].*|Z)?$"_s);
    const QRegularExpressionMatch found = form.match(text.trimmed());
    if (!found.hasMatch()) return {};
    CardDate date;
    for (const int first : {1, 4}) {
        if (found.capturedLength(first) == 0) continue;
        date = {found.captured(first + 2).toInt(), found.captured(first + 1).toInt(),
                found.captured(first).toInt()};
    }
    if (found.capturedLength(7) > 0) date = {found.captured(8).toInt(), found.captured(7).toInt(), 0};
    if (date.year == noYear) date.year = 0;
    if (!exists(date)) return {};
    return date;
}

QString cardDateText(const CardDate &date, bool isVersion4)
{
    const QString month = digits(date.month, 2);
    const QString day = digits(date.day, 2);
    if (date.year == 0 && isVersion4) return u"--"_s + month + day;
    const QStringList parts{digits(date.year == 0 ? noYear : date.year, 4), month, day};
    return parts.join(isVersion4 ? QString() : u"-"_s);
}
