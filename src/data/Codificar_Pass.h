// The scrambling of user passwords. Passwords are stored and compared scrambled, and never turned back.
#pragma once

#include <QString>

// Replaces each of the letters a to z and A to Z and the digits by another of these 62 symbols, one for one, by
// a fixed table; every other character passes unchanged. Applied twice it does not return the plain text.
// Databases in use depend on the table: it never changes.
QString Codificar_Pass(const QString &simples);
