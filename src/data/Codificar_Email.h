// The reversible scrambling under which the passwords of mail accounts are stored.
#pragma once

#include <QString>

// Replaces each of the letters a to z and A to Z and the digits by another of these 62 symbols, one for one,
// by a fixed table. A few stand for themselves. Any other character is lost: in its place the symbol put out
// before it comes again, at the beginning the one that `saida` holds from the last call (none if it is
// empty). Databases in use depend on the table: it never changes.
QString Codificar_Email(const QString &simples, QString &saida);

// Turns it back. A character outside of the 62 symbols repeats the one before it, and is nothing at the
// beginning.
QString Descodificar_Email(const QString &codificada);
