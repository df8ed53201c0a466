// The cells of a recordset, packed: 32,767 rows cost their letters and 16 bytes a cell, not an object each.
#pragma once

#include "store/Values.h"

#include <string>
#include <string_view>
#include <vector>

class Cells
{
public:
    Cells() = default;
    Cells(std::initializer_list<StoreValue> values);

    void addNull() { cells_.push_back({}); }
    void add(qint64 number);
    void add(double number);
    void add(std::string_view utf8);
    void addBytes(std::string_view bytes);
    void add(const StoreValue &value);

    std::size_t size() const { return cells_.size(); }
    bool empty() const { return cells_.empty(); }
    bool isNull(std::size_t place) const { return cells_[place].kind == Kind::Null; }

    // The cell as the store holds it; a text is made anew at each call.
    StoreValue at(std::size_t place) const;

private:
    enum class Kind : uint8_t { Null, Integer, Real, Text, Bytes };
    struct Cell {
        Kind kind = Kind::Null;
        uint32_t length = 0; // of a text or of bytes; the store holds none beyond 1 GB
        union {
            qint64 integer = 0;
            double real;
            std::size_t start; // of a text or of bytes among the letters
        };
    };
    void add(Kind kind, std::string_view letters);

    std::vector<Cell> cells_;
    std::string letters_;
};
