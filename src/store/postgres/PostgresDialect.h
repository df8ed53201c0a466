// A statement that the file understands, in the words of a server. Only on text; nothing is asked.
#pragma once

#include <QString>

namespace postgres
{
// What differs, wherever it stands outside of quotes:
// - a DELETE that names what it deletes loses the star
// - each ? becomes $1, $2 and so on, in their order
// - LIKE compares without case as the file does, a column of any type, and knows no escape; so it stands
//   between a column, a call or what is in brackets, and a ?, a text or a column
// - Null is the smallest value, in each ORDER BY
// - last_insert_rowid() asks the session for the number of the row that it added last, 0 before the first
// - COLLATE BINARY is the order of bytes
// What else the statement says is taken to be the same.
QString said(const QString &sql);

// How many values the statement wants.
int parameters(const QString &sql);
} // namespace postgres
