// How the store compares texts: case does not count, accents and forms ("m2" and "m²") do, in every alphabet,
// on every machine alike.
#pragma once

#include <QString>

struct sqlite3;

// Negative, zero or positive, as a sorts before, with or behind b.
int compareText(QStringView a, QStringView b);

// Tells this order from that of another release, which may sort a few letters elsewhere: digits and letters,
// as they may stand in a name of the store.
QString textOrderVersion();

// True when the text matches the pattern, in which % stands for any run of characters and _ for any one.
bool matchesLike(QStringView pattern, QStringView text);

// Gives a connection of the store these rules: the collation MORVEX, and LIKE.
void registerTextRules(sqlite3 *connection);
