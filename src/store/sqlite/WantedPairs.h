// Rows that are wanted by what two of their columns hold. A book of thousands holds a few hundred different pairs:
// where an index has these, one step in it leads from each to the next, and no more is asked for than they.
#pragma once

#include <QString>

class WantedPairs
{
public:
    // The columns of one table, "T.a, T.b". Where that is not named with both there is no index of them.
    explicit WantedPairs(const QString &columns);

    bool isOfTable() const { return !table_.isEmpty(); }
    const QString &table() const { return table_; }

    // What an index of the pairs is made on: "CREATE INDEX name ON " and this.
    QString indexed() const;

    // A SELECT of the numbers of the wanted rows, which takes its time where there is no such index.
    QString rows() const;

private:
    QString table_, first_, second_;
};
