// The row on which a query stands, read where the store keeps it. Nothing of it outlives the call that was
// handed it.
#pragma once

#include "store/Recordset.h"

#include <string_view>

struct sqlite3_stmt;

class Row
{
public:
    explicit Row(sqlite3_stmt *statement) : statement_(statement) {}

    // The place of that column, in any case of letters; of two equal names the first. Failure where there is
    // none.
    int column(const char *name) const;

    // Places that column() told. The text stands until the next question about its cell; Null is empty.
    std::string_view utf8(int column) const;
    std::string_view bytes(int column) const;
    Field field(int column) const;
    qint64 number(int column) const; // of a cell that holds one, as a key does
    void addTo(Cells &cells, int column) const;

private:
    sqlite3_stmt *statement_;
};
