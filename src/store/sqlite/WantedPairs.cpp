#include "store/sqlite/WantedPairs.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
// Null is asked for as an empty text. As an expression, and not a column, it has the order of its bytes.
QString key(const QString &column) { return u"ifnull(%1, '')"_s.arg(column); }
} // namespace

WantedPairs::WantedPairs(const QString &columns)
{
    const QStringList both = columns.split(u", "_s);
    const QString table = both.first().section(u'.', 0, 0);
    if (!both.last().startsWith(table + u'.')) return;
    table_ = table;
    first_ = both.first().section(u'.', 1);
    second_ = both.last().section(u'.', 1);
}

QString WantedPairs::indexed() const { return u"%1 (%2, %3)"_s.arg(table_, key(first_), key(second_)); }

// The first texts, one by one; with each of them the second ones, one by one; the rows of those that are wanted.
QString WantedPairs::rows() const
{
    return u"WITH RECURSIVE firsts(a) AS (SELECT min(%2) FROM %1 "
           "UNION ALL SELECT (SELECT min(%2) FROM %1 WHERE %2 > firsts.a) FROM firsts WHERE a IS NOT NULL), "
           "pairs(a, b) AS (SELECT a, (SELECT min(%3) FROM %1 WHERE %2 = firsts.a) FROM firsts WHERE a IS NOT NULL "
           "UNION ALL SELECT a, (SELECT min(%3) FROM %1 WHERE %2 = pairs.a AND %3 > pairs.b) FROM pairs "
           "WHERE b IS NOT NULL) "
           "SELECT held.rowid FROM pairs CROSS JOIN %1 AS held ON %4 = pairs.a AND %5 = pairs.b "
           "WHERE pairs.b IS NOT NULL AND wanted(pairs.a, pairs.b)"_s.arg(
               table_, key(first_), key(second_), key(u"held."_s + first_), key(u"held."_s + second_));
}
