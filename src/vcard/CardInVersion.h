// A card in the version that a file is wanted in.
#pragma once

#include <QByteArray>

class Card;
enum class CardVersion;

// A card of version 3.0 or 4.0 that is of that version already is given back as it is. Of any other all that
// it says is written in the wanted one, and what this program has no field for stays as it stood; parameters
// that belong to the old version's manner are lost.
QByteArray inVersion(const Card &card, CardVersion version);
