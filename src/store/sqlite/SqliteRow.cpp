#include "store/sqlite/SqliteRow.h"

#include <sqlite3.h>

int SqliteRow::columns() const { return sqlite3_column_count(statement_); }

const char *SqliteRow::name(int column) const { return sqlite3_column_name(statement_, column); }

std::string_view SqliteRow::utf8(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement_, column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::string_view SqliteRow::bytes(int column) const
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(statement_, column));
    if (bytes == nullptr) return {};
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Field SqliteRow::field(int column) const
{
    switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
        return Field({});
    case SQLITE_INTEGER:
        return Field(qint64{sqlite3_column_int64(statement_, column)});
    case SQLITE_FLOAT:
        return Field(sqlite3_column_double(statement_, column));
    case SQLITE_BLOB:
        return Field(QByteArray(bytes(column).data(), sqlite3_column_bytes(statement_, column)));
    default:
        const std::string_view text = utf8(column);
        return Field(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }
}

qint64 SqliteRow::number(int column) const { return sqlite3_column_int64(statement_, column); }

// The kind is asked for once: each question to the store costs as much as reading a number.
void SqliteRow::addTo(Cells &cells, int column) const
{
    switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
        return cells.addNull();
    case SQLITE_INTEGER:
        return cells.add(qint64{sqlite3_column_int64(statement_, column)});
    case SQLITE_FLOAT:
        return cells.add(sqlite3_column_double(statement_, column));
    case SQLITE_BLOB:
        return cells.addBytes(bytes(column));
    default:
        return cells.add(utf8(column));
    }
}
