// Values on their way into the store. Callers hand over loosely typed values, mostly strings; each is
// converted to the type of the column that it meets, and what cannot be converted is an error of the command.
#pragma once

#include <QByteArray>
#include <QString>
#include <variant>

enum class ColumnType {
    Text,
    Long,   // signed, 32 bits
    Single, // 32-bit float
    YesNo,
    Date,
    Time,
    Pattern, // a LIKE pattern over a column of any type: stays the text that it is
    Bytes,   // as they are
};

// Null, or an integer, a float, a text or bytes, as the store holds it.
using StoreValue = std::variant<std::monostate, qint64, double, QString, QByteArray>;

// A value as a caller has it. Null stays Null in a column of any type, and "" stays "" in a text.
class Value
{
public:
    Value(std::nullptr_t) {}
    Value(const QString &text) : value_(text) {}
    Value(const char16_t *text) : value_(QString::fromUtf16(text)) {}
    Value(int number) : value_(qint64{number}) {}
    Value(bool flag) : value_(qint64{flag ? -1 : 0}) {}
    Value(double number) : value_(number) {}
    Value(const QByteArray &bytes) : value_(bytes) {}

    // Raises Failure (type mismatch) for what the column cannot hold:
    // Long: optional blanks and sign, then digits that fit 32 bits. Single: "." or "," is the decimal sign.
    // YesNo: 0 is no and any other number yes; True/False, Verdadeiro/Falso, Sim/Não, Yes/No in any case.
    // Date: dd-mm-yyyy (also with / or .) or yyyy-mm-dd, a time behind it is dropped. Time: hh:mm or
    // hh:mm:ss. The empty string is an error of all of these. Bytes: nothing but bytes, and no other column
    // takes any.
    StoreValue convertedTo(ColumnType type) const;

private:
    QString text() const;

    StoreValue value_;
};
