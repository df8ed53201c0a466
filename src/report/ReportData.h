// The records of a report: a snapshot, taken when the report runs, of every field that its definition shows.
// The database is never held open and never written to.
#pragma once

#include "report/ReportDefinition.h"

#include <QStringList>

class ReportData
{
public:
    // The selection as SelectionFormula tells; the sort fields are "+{Table.Field}" or "-{Table.Field}", the
    // first one first. Raises Failure for a database that can't be read, for a table or field that it doesn't
    // have, and for a broken selection or sort field.
    ReportData(const ReportDefinition &definition, const QString &database, const QString &selection,
               const QStringList &sort);

    std::size_t size() const { return cells_.size() / width_; }
    // A field of a record by its number in the definition; what is Null in the database is the empty text.
    const QString &field(std::size_t record, std::size_t number) const
    {
        return cells_[record * width_ + number];
    }

private:
    std::size_t width_;
    std::vector<QString> cells_; // record by record
};
