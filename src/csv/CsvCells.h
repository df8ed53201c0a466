// Cuts the text of a table into rows of cells.
#pragma once

#include <limits>
#include <QString>
#include <QStringList>
#include <vector>

// No more than that many rows. A cell is quoted only by a mark at its very start; inside, two marks are one,
// and line breaks and delimiters are text. Empty lines are none; rows may differ in length.
std::vector<QStringList> csvCells(QStringView text, QChar delimiter,
                                  std::size_t mostRows = std::numeric_limits<std::size_t>::max());

// A cell that a spreadsheet would take for a formula is written with an apostrophe before it, and comes back
// without.
QString guardedCell(const QString &cell);
QString unguardedCell(const QString &cell);
