#include "store/Recordset.h"

#include "platform/Failure.h"

#include <algorithm>
#include <limits>
#include <QLocale>

namespace
{
[[noreturn]] void raise(Failure::Number number, const QString &description)
{
    throw Failure(number, QStringLiteral("Recordset"), description);
}
bool sameName(const QByteArray &a, const QByteArray &b)
{
    return a.size() == b.size() && qstricmp(a.constData(), b.constData()) == 0;
}
} // namespace

QString Field::text() const
{
    if (isNull()) raise(Failure::InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
    if (const auto *number = std::get_if<qint64>(&value_)) return QString::number(*number);
    if (const auto *number = std::get_if<double>(&value_))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    if (const auto *bytes = std::get_if<QByteArray>(&value_)) return QString::fromUtf8(*bytes);
    return std::get<QString>(value_);
}

QString Field::textOrEmpty() const { return isNull() ? QString() : text(); }

QByteArray Field::bytes() const
{
    const auto *bytes = std::get_if<QByteArray>(&value_);
    return bytes != nullptr ? *bytes : textOrEmpty().toUtf8();
}

int Field::number() const
{
    const double value = real();
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        raise(Failure::OutOfMemoryOrRange, QStringLiteral("%1 does not fit 32 bits").arg(value));
    return static_cast<int>(value);
}

double Field::real() const
{
    if (const auto *number = std::get_if<qint64>(&value_)) return static_cast<double>(*number);
    if (const auto *number = std::get_if<double>(&value_)) return *number;
    bool valid = false;
    const double number = text().toDouble(&valid);
    if (!valid) raise(Failure::TypeMismatch, QStringLiteral("\"%1\" is no number").arg(text()));
    return number;
}

bool Field::yes() const { return number() != 0; }

QDate Field::date() const
{
    const QDate date = QDate::fromString(text(), Qt::ISODate);
    if (!date.isValid()) raise(Failure::TypeMismatch, QStringLiteral("\"%1\" is no date").arg(text()));
    return date;
}

QTime Field::time() const
{
    const QTime time = QTime::fromString(text(), Qt::ISODate);
    if (!time.isValid()) raise(Failure::TypeMismatch, QStringLiteral("\"%1\" is no time").arg(text()));
    return time;
}

Recordset::Recordset(std::vector<QByteArray> columns, Cells cells)
    : state_(Open), columns_(std::move(columns)), cells_(std::move(cells))
{
    for (auto column = columns_.begin(); column != columns_.end(); ++column)
        if (std::any_of(columns_.begin(), column,
                        [&](const QByteArray &before) { return sameName(before, *column); }))
            column->clear();
}

void Recordset::Close() { *this = Recordset(); }

int Recordset::RecordCount() const
{
    checkOpen();
    return columns_.empty() ? 0 : static_cast<int>(cells_.size() / columns_.size());
}

bool Recordset::Bof() const
{
    checkOpen();
    return cells_.empty();
}

bool Recordset::Eof() const
{
    checkOpen();
    return first_ >= cells_.size();
}

void Recordset::MoveNext()
{
    if (Eof()) raise(Failure::NoCurrentRecord, QStringLiteral("No current record"));
    first_ += columns_.size();
}

Field Recordset::Fields(const char *name) const
{
    if (Eof()) raise(Failure::NoCurrentRecord, QStringLiteral("No current record"));
    const auto length = static_cast<std::size_t>(qstrlen(name)); // most other names differ in it
    std::size_t column = next_; // counted round by hand: a division a cell shows in a large book
    for (std::size_t i = 0; i < columns_.size(); ++i, ++column) {
        if (column >= columns_.size()) column = 0;
        if (!named(column, name, length)) continue;
        next_ = column + 1;
        return Field(cells_.at(first_ + column));
    }
    raise(Failure::ItemNotFound, QStringLiteral("No column named %1").arg(QLatin1String(name)));
}

QStringList Recordset::Row() const
{
    if (Eof()) raise(Failure::NoCurrentRecord, QStringLiteral("No current record"));
    QStringList row;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Field field(cells_.at(first_ + i));
        row << (field.isNull() ? QStringLiteral("<Null>") : field.text());
    }
    return row;
}

bool Recordset::named(std::size_t column, const char *name, std::size_t length) const
{
    const QByteArray &own = columns_[column];
    return length > 0 && static_cast<std::size_t>(own.size()) == length &&
           qstricmp(own.constData(), name) == 0;
}

void Recordset::checkOpen() const
{
    if (state_ == Closed) raise(Failure::StoreError, QStringLiteral("The recordset is closed"));
}
