// The indexes of a large book: one hands out the contacts in the order of their names, already sorted and without
// the rows themselves; the other one knows which days and months they have, so that a birthday is looked for among
// a few hundred dates and not among all contacts. A small book does without: it is read in a moment either way, an
// index costs each write, and no other tool can write to a table whose index is in this program's order.
#pragma once

#include <QLatin1StringView>

class Connection;

// The columns of the second one.
inline constexpr QLatin1StringView colunas_do_aniversario("TblLista.Dia, TblLista.Mes");

// Sees to it that the database has the indexes if its contacts have ever been many, and none of another order:
// one made by another release of the collation would hand out rows in a wrong order. Two programs with
// different releases of it must not have one large book open at the same time. Raises Failure where the
// database cannot be written; an index of another order then stays, and with it that order.
void Cuidar_Dos_Indices(Connection &ligacao);
