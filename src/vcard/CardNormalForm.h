// Tells whether two cards say the same, however the programs between them have rewritten them.
#pragma once

#include <QByteArray>

class Card;

// The card's properties without those that each writing changes (REV, PRODID): heads in upper case,
// parameters and lines sorted, folds and needless escapes resolved. For comparison only.
QByteArray normalForm(const Card &card);
