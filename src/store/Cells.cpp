#include "store/Cells.h"

#include "platform/MakeRoom.h"

Cells::Cells(std::initializer_list<StoreValue> values)
{
    for (const StoreValue &value : values)
        add(value);
}

void Cells::add(qint64 number)
{
    Cell cell;
    cell.kind = Kind::Integer;
    cell.integer = number;
    makeRoom(cells_, 1);
    cells_.push_back(cell);
}

void Cells::add(double number)
{
    Cell cell;
    cell.kind = Kind::Real;
    cell.real = number;
    makeRoom(cells_, 1);
    cells_.push_back(cell);
}

void Cells::add(std::string_view utf8) { add(Kind::Text, utf8); }

void Cells::addBytes(std::string_view bytes) { add(Kind::Bytes, bytes); }

void Cells::add(Kind kind, std::string_view letters)
{
    Cell cell;
    cell.kind = kind;
    cell.length = static_cast<uint32_t>(letters.size());
    cell.start = letters_.size();
    makeRoom(letters_, letters.size());
    letters_ += letters;
    makeRoom(cells_, 1);
    cells_.push_back(cell);
}

void Cells::add(const StoreValue &value)
{
    if (const auto *text = std::get_if<QString>(&value)) return add(std::string_view(text->toStdString()));
    if (const auto *integer = std::get_if<qint64>(&value)) return add(*integer);
    if (const auto *real = std::get_if<double>(&value)) return add(*real);
    if (const auto *bytes = std::get_if<QByteArray>(&value))
        return addBytes(std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size())));
    addNull();
}

StoreValue Cells::at(std::size_t place) const
{
    const Cell &cell = cells_[place];
    switch (cell.kind) {
    case Kind::Integer:
        return cell.integer;
    case Kind::Real:
        return cell.real;
    case Kind::Text:
        return QString::fromUtf8(letters_.data() + cell.start, cell.length);
    case Kind::Bytes:
        return QByteArray(letters_.data() + cell.start, cell.length);
    case Kind::Null:
        break;
    }
    return {};
}
