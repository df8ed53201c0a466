// A row of an answer, read where the server's library keeps it.
#pragma once

#include "store/postgres/Libpq.h"
#include "store/Row.h"

#include <string>

class PostgresRow final : public Row
{
public:
    // The answer must outlive the row, which stands on the first of its rows.
    explicit PostgresRow(const PGresult *answer) : answer_(answer) {}
    void moveTo(int row) { row_ = row; }

    int columns() const override { return libpq::nfields(answer_); }
    const char *name(int column) const override { return libpq::fname(answer_, column); }
    std::string_view utf8(int column) const override;
    std::string_view bytes(int column) const override;
    Field field(int column) const override;
    qint64 number(int column) const override;
    using Row::addTo;
    void addTo(Cells &cells, int column) const override;

private:
    enum class Kind { Null, Integer, YesNo, Real, Bytes, Text };
    Kind kind(int column) const;
    double real(int column) const;

    const PGresult *answer_;
    int row_ = 0;
    mutable std::string bytes_; // of the cell that was asked for last
};
