#include "vcard/CardPatch.h"

#include "vcard/Card.h"
#include "vcard/CardReader.h"

#include <algorithm>
#include <QRegularExpression>
#include <set>

using namespace Qt::StringLiterals;

namespace
{
using Ranks = std::set<std::size_t>; // of properties in their card

QByteArray groupOf(const CardProperty &property) { return property.head().group().toLower(); }

bool isLabel(const CardProperty &property) { return property.name() == "X-ABLABEL"; }

// Labels whose group has nothing left to be labelled.
void addOrphans(const Card &card, Ranks &gone)
{
    std::set<QByteArray> emptied;
    for (const std::size_t rank : gone)
        emptied.insert(groupOf(card.properties()[rank]));
    emptied.erase(QByteArray());
    for (std::size_t i = 0; i < card.properties().size(); ++i)
        if (!gone.contains(i) && !card.properties()[i].name().startsWith("X-AB"))
            emptied.erase(groupOf(card.properties()[i]));
    for (std::size_t i = 0; i < card.properties().size(); ++i)
        if (isLabel(card.properties()[i]) && emptied.contains(groupOf(card.properties()[i]))) gone.insert(i);
}

// Where the line of the END begins.
qsizetype beginOfEnd(const Card &card)
{
    qsizetype at = card.end();
    while (at > card.begin() && (card.file()[at - 1] == '\n' || card.file()[at - 1] == '\r'))
        --at;
    while (at > card.begin() && card.file()[at - 1] != '\n' && card.file()[at - 1] != '\r')
        --at;
    return at;
}

QByteArray patched(const Card &card, const Ranks &gone, const QByteArray &lines)
{
    const qsizetype end = beginOfEnd(card);
    QByteArray bytes;
    qsizetype at = card.begin();
    const auto keepUpTo = [&](qsizetype place) {
        bytes += QByteArrayView(card.file()).sliced(at, place - at);
        at = place;
    };
    bool areWritten = false;
    for (const std::size_t rank : gone) {
        const CardProperty::Place &place = card.properties()[rank].place();
        keepUpTo(place.begin);
        if (!areWritten) bytes += lines;
        areWritten = true;
        at = place.end;
    }
    keepUpTo(end);
    if (!areWritten) bytes += lines;
    keepUpTo(card.end());
    return bytes;
}
} // namespace

QByteArray patchedCard(const Card &card, const std::vector<const CardProperty *> &replaced,
                       const QByteArray &lines)
{
    Ranks gone;
    for (std::size_t i = 0; i < card.properties().size(); ++i)
        if (std::find(replaced.begin(), replaced.end(), &card.properties()[i]) != replaced.end())
            gone.insert(i);
    addOrphans(card, gone);
    if (card.isWhole()) return patched(card, gone, lines);
    // Put together of its own properties, it has the same ones in the same order.
    const CardFile whole = CardReader().read(card.source());
    return whole.cards.empty() ? QByteArray() : patched(whole.cards.front(), gone, lines);
}

int firstFreeGroup(const Card &card)
{
    static const QRegularExpression number(u"^item(\\d{1,6})$"_s, QRegularExpression::CaseInsensitiveOption);
    int free = 1;
    for (const CardProperty &property : card.properties()) {
        const auto found = number.match(QString::fromLatin1(property.head().group()));
        if (found.hasMatch()) free = std::max(free, found.captured(1).toInt() + 1);
    }
    return free;
}
