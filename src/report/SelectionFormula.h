// Which records go in: "{TblLista.Grupo}=6 and not ({TblLista.Nome} < 'M')", turned into a condition of the
// store. Fields stand in braces; operators are = <> < <= > >=; the other side is a number or a quoted text,
// whose own quotes are doubled; "and" binds tighter than "or", "not" tighter than both, and parentheses
// group.
#pragma once

#include "store/Values.h"

#include <functional>
#include <vector>

struct SelectionCondition {
    QString sql; // with a ? for each value; empty for all records
    std::vector<StoreValue> values;
};

// The store's expression for a field, or the empty string when there is no such field.
using FieldSql = std::function<QString(const QString &table, const QString &column)>;

// Raises Failure with the position, counted from 1, of whatever isn't as above. Names come from fieldSql and
// texts and numbers go into the values, so nothing of the formula itself reaches the store.
SelectionCondition compileSelection(const QString &formula, const FieldSql &fieldSql);
