// The order of texts wherever the program sorts them, in the store as in a list: case does not count, accents
// and forms ("m2" and "m²") do, in every alphabet, on every machine alike.
#pragma once

#include <QByteArrayView>
#include <QString>

// Negative, zero or positive, as a sorts before, with or behind b.
int compareText(QStringView a, QStringView b);
int compareUtf8(QByteArrayView a, QByteArrayView b);

// Tells this order from that of another release, which may sort a few letters elsewhere: digits and letters,
// as they may stand in a name of the store.
QString textOrderVersion();

// Of the library that knows it, as it runs.
QString textLibraryVersion();
