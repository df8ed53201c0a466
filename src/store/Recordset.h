// The rows that a query returned, read whole when it ran: the count is true at once and nothing stays locked.
#pragma once

#include "store/Cells.h"

#include <QDate>
#include <QStringList>
#include <QTime>
#include <vector>

// One cell of the current row. The typed readers raise Failure for Null and for what has another type.
class Field
{
public:
    explicit Field(StoreValue value) : value_(std::move(value)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
    QString text() const;        // a number as its decimal digits
    QString textOrEmpty() const; // Null reads as the empty string
    QByteArray bytes() const;    // those of a text are its UTF-8, Null is none
    int number() const;
    double real() const;
    bool yes() const;
    QDate date() const;
    QTime time() const;

private:
    StoreValue value_;
};

class Recordset
{
public:
    enum StateValue { Closed = 0, Open = 1 };

    Recordset() = default;
    Recordset(std::vector<QByteArray> columns, Cells cells); // row by row

    StateValue State() const { return state_; }
    void Close(); // a closed recordset may be closed again

    int RecordCount() const;
    bool Bof() const; // no row at all
    bool Eof() const;
    void MoveNext(); // Failure behind the last row

    // The cell of that name, in any case of letters, in the current row; of two equal names the first. Raises
    // Failure where there is no such column, no current row, or the recordset is closed.
    Field Fields(const char *name) const;

    // All cells of the current row as text, Null as "<Null>".
    QStringList Row() const;

private:
    void checkOpen() const;
    bool named(std::size_t column, const char *name, std::size_t length) const;

    StateValue state_ = Closed;
    std::vector<QByteArray> columns_; // a name that stood before is empty
    Cells cells_;                     // row by row
    std::size_t first_ = 0;           // first cell of the current row
    mutable std::size_t next_ = 0;    // columns are mostly asked for in their order: the one that comes next
};
