// A row of a statement of the file's store.
#pragma once

#include "store/Row.h"

struct sqlite3_stmt;

class SqliteRow final : public Row
{
public:
    explicit SqliteRow(sqlite3_stmt *statement) : statement_(statement) {}

    int columns() const override;
    const char *name(int column) const override;
    std::string_view utf8(int column) const override;
    std::string_view bytes(int column) const override;
    Field field(int column) const override;
    qint64 number(int column) const override;
    using Row::addTo;
    void addTo(Cells &cells, int column) const override;

private:
    sqlite3_stmt *statement_;
};
