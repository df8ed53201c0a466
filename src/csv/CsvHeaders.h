// Knows the names that programs give to the columns of their exports, in seven languages, and reads a row of
// them. A name that means different things in different programs is settled by the columns around it.
#pragma once

#include "csv/CsvFields.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

class CsvHeaders
{
public:
    CsvHeaders(); // reads the table of names that is compiled in

    // One for each name, in their order.
    std::vector<CsvColumn> columns(const QStringList &names) const;

    // A name that means different things in different programs.
    bool isAmbiguous(const QString &name) const { return meaningOf(name).isDoubtful; }

    std::size_t knownNames() const { return static_cast<std::size_t>(names_.size()); }

    // A name as the table has it: lower case, without accents, all signs but letters and digits one blank.
    static QString folded(const QString &name);

private:
    struct Meaning {
        CsvColumn column;
        bool isDoubtful = false; // the column is only the first guess
    };
    using Row = std::vector<Meaning>;

    Meaning meaningOf(const QString &name) const;
    static void settle(Row &row, std::size_t at);

    QHash<QString, Meaning> names_;
};
