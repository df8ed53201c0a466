// Cards that stand for a group of people, and the names that they give to their members.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

class Card;
class CardProperty;
struct CardContent;

// A property by which a card says that it stands for a group.
bool isGroupKind(const CardProperty &property);

// Whether the card says that it stands for a group; the same as in its content, for little.
bool isGroupCard(const Card &card);

// A UID without the ways in which a reference to it is decorated ("urn:uuid:…").
QString plainUid(const QString &uid);

// The names of the groups by the plain UID of each member, in the order of the cards.
QHash<QString, QStringList> groupsByMember(const std::vector<CardContent> &cards);
