// Makes a card of an older version one that can be patched.
#pragma once

#include <QByteArray>

class Card;

// The same card in version 3.0 and UTF-8, with all its properties in their order: quoted-printable has become
// text, words without a name are types, pictures stay the bytes they were. A card of version 3.0 or 4.0 is
// given back as it is.
QByteArray toVersion3(const Card &card);
