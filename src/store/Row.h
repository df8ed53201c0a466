// The row on which a query stands, read where the store keeps it. Nothing of it outlives the call that was
// handed it.
#pragma once

#include "store/Recordset.h"

#include <string_view>

class Row
{
public:
    Row() = default;
    virtual ~Row() = default;
    Row(const Row &) = delete;
    Row &operator=(const Row &) = delete;

    virtual int columns() const = 0;
    virtual const char *name(int column) const = 0;

    // The place of that column, in any case of letters; of two equal names the first. Failure where there is
    // none.
    int column(const char *name) const;

    // Places that column() told. The text stands until the next question about its cell; Null is empty.
    virtual std::string_view utf8(int column) const = 0;
    virtual std::string_view bytes(int column) const = 0;
    virtual Field field(int column) const = 0;
    virtual qint64 number(int column) const = 0; // of a cell that holds one, as a key does
    virtual void addTo(Cells &cells, int column) const = 0;
    // The whole row, behind what stands there.
    void addTo(Cells &cells) const;
    std::vector<QByteArray> columnNames() const;
};
