#include "store/postgres/PostgresRow.h"

#include <charconv>

namespace
{
// The server's own numbers of its types, which never change.
enum Type : Oid {
    Bool = 16,
    ByteA = 17,
    Int8 = 20,
    Int2 = 21,
    Int4 = 23,
    ObjectId = 26,
    Float4 = 700,
    Float8 = 701,
    Numeric = 1700,
};

template<class Number> Number numberIn(std::string_view digits)
{
    Number number{};
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}
} // namespace

PostgresRow::Kind PostgresRow::kind(int column) const
{
    if (libpq::getisnull(answer_, row_, column) != 0) return Kind::Null;
    switch (libpq::ftype(answer_, column)) {
    case Bool:
        return Kind::YesNo;
    case ByteA:
        return Kind::Bytes;
    case Int8:
    case Int2:
    case Int4:
    case ObjectId:
        return Kind::Integer;
    case Float4:
    case Float8:
        return Kind::Real;
    case Numeric: // a sum of whole numbers is one
        return utf8(column).find('.') == std::string_view::npos ? Kind::Integer : Kind::Real;
    default:
        return Kind::Text;
    }
}

std::string_view PostgresRow::utf8(int column) const
{
    return {libpq::getvalue(answer_, row_, column), static_cast<std::size_t>(libpq::getlength(answer_, row_, column))};
}

std::string_view PostgresRow::bytes(int column) const
{
    if (libpq::getisnull(answer_, row_, column) != 0) return {};
    if (libpq::ftype(answer_, column) != ByteA) return utf8(column);
    std::size_t length = 0;
    const auto *text = reinterpret_cast<const unsigned char *>(libpq::getvalue(answer_, row_, column));
    unsigned char *plain = libpq::unescapeBytea(text, &length);
    bytes_.assign(reinterpret_cast<const char *>(plain), length);
    libpq::freemem(plain);
    return bytes_;
}

double PostgresRow::real(int column) const { return numberIn<double>(utf8(column)); }

qint64 PostgresRow::number(int column) const
{
    return kind(column) == Kind::YesNo ? qint64{utf8(column) == "t"} : numberIn<qint64>(utf8(column));
}

Field PostgresRow::field(int column) const
{
    Cells one;
    addTo(one, column);
    return Field(one.at(0));
}

void PostgresRow::addTo(Cells &cells, int column) const
{
    switch (kind(column)) {
    case Kind::Null:
        return cells.addNull();
    case Kind::Integer:
    case Kind::YesNo:
        return cells.add(number(column));
    case Kind::Real:
        return cells.add(real(column));
    case Kind::Bytes:
        return cells.addBytes(bytes(column));
    case Kind::Text:
        return cells.add(utf8(column));
    }
}
