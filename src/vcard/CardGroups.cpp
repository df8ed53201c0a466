#include "vcard/CardGroups.h"

#include "vcard/Card.h"
#include "vcard/CardContent.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool isGroupKind(const CardProperty &property)
{
    return (property.name() == "KIND" || property.name() == "X-ADDRESSBOOKSERVER-KIND") &&
           property.text().trimmed().compare("group"_L1, Qt::CaseInsensitive) == 0;
}

bool isGroupCard(const Card &card)
{
    return std::any_of(card.properties().begin(), card.properties().end(), isGroupKind);
}

QString plainUid(const QString &uid)
{
    QString plain = uid.trimmed();
    if (plain.startsWith("urn:uuid:"_L1, Qt::CaseInsensitive)) plain = plain.sliced(9);
    return plain;
}

QHash<QString, QStringList> groupsByMember(const std::vector<CardContent> &cards)
{
    QHash<QString, QStringList> groups;
    for (const CardContent &card : cards) {
        const QString name = card.isGroup ? shownName(card) : QString();
        if (name.isEmpty()) continue;
        for (const QString &member : card.members)
            groups[member] << name;
    }
    return groups;
}
