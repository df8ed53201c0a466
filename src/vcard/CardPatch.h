// Changes a kept card without touching what this program has no field for.
#pragma once

#include <QByteArray>
#include <vector>

class Card;
class CardProperty;

// The card's bytes in which these of its properties have given their place to the lines, which CardWriter
// wrote in the card's own version; all others stay byte for byte. The label of a property that goes, goes
// with it. Where nothing is replaced the lines come before the END.
QByteArray patchedCard(const Card &card, const std::vector<const CardProperty *> &replaced,
                       const QByteArray &lines);

// A number for CardWriter's groups that none of the card's own groups has, nor any behind it.
int firstFreeGroup(const Card &card);
