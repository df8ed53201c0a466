#include "vcard/CardContent.h"

#include "vcard/Card.h"
#include "vcard/CardGroups.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{
CardEntry entryOf(const Card &card, const CardProperty &property)
{
    const QStringList types = property.types();
    return {property.text().trimmed(), types, property.preference(types), card.label(property)};
}

// A part that is missing is empty.
QString part(const QStringList &parts, qsizetype at) { return parts.value(at); }

CardName nameOf(const CardProperty &property)
{
    const QStringList parts = property.parts();
    return {part(parts, 0), part(parts, 1), part(parts, 2), part(parts, 3), part(parts, 4)};
}

CardAddress addressOf(const Card &card, const CardProperty &property)
{
    const QStringList parts = property.parts();
    const QStringList types = property.types();
    return {part(parts, 0),      part(parts, 1), part(parts, 2),
            part(parts, 3),      part(parts, 4), part(parts, 5),
            part(parts, 6),      types,          property.preference(types),
            card.label(property)};
}

CardBirthday birthdayOf(const CardProperty &property)
{
    CardBirthday birthday{property.text().trimmed(), {}};
    if (property.head().value("VALUE").compare("text", Qt::CaseInsensitive) == 0) return birthday;
    birthday.date = cardDate(birthday.text);
    const QByteArray omitted = property.head().value("X-APPLE-OMIT-YEAR");
    if (birthday.date && !omitted.isEmpty() && omitted.toInt() == birthday.date->year)
        birthday.date->year = 0;
    return birthday;
}

// An address in the web is no text, yet some programs escape its colon, even twice.
CardEntry websiteOf(const Card &card, const CardProperty &property)
{
    CardEntry entry = entryOf(card, property);
    entry.value.replace("\\:"_L1, ":"_L1);
    return entry;
}

void takeList(QStringList &into, const CardProperty &property)
{
    for (const QString &each : property.list())
        if (!each.trimmed().isEmpty()) into << each.trimmed();
}

bool isProgramsOwn(const QByteArray &name)
{
    return name == "VERSION" || name == "X-ABLABEL" || name == "BEGIN" || name == "END";
}

void takeKind(CardContent &content, const Card &, const CardProperty &property)
{
    content.isGroup = content.isGroup || isGroupKind(property);
}

void takeMember(CardContent &content, const Card &, const CardProperty &property)
{
    content.members << plainUid(property.text());
}

struct Taker {
    QByteArrayView name;
    void (*take)(CardContent &, const Card &, const CardProperty &);
};

// Those that most cards have stand first.
constexpr Taker takers[]{
    {"TEL", [](CardContent &content, const Card &card,
               const CardProperty &property) { content.phones.push_back(entryOf(card, property)); }},
    {"EMAIL", [](CardContent &content, const Card &card,
                 const CardProperty &property) { content.emails.push_back(entryOf(card, property)); }},
    {"N",
     [](CardContent &content, const Card &, const CardProperty &property) {
         if (!content.name) content.name = nameOf(property);
     }},
    {"ADR", [](CardContent &content, const Card &card,
               const CardProperty &property) { content.addresses.push_back(addressOf(card, property)); }},
    {"UID",
     [](CardContent &content, const Card &, const CardProperty &property) {
         if (!content.uid) content.uid = property.text().trimmed();
     }},
    {"ORG",
     [](CardContent &content, const Card &, const CardProperty &property) {
         if (content.organisation.isEmpty()) content.organisation = property.parts();
     }},
    {"URL", [](CardContent &content, const Card &card,
               const CardProperty &property) { content.websites.push_back(websiteOf(card, property)); }},
    {"NOTE",
     [](CardContent &content, const Card &card, const CardProperty &property) {
         CardEntry note = entryOf(card, property);
         note.value = property.text(); // its line breaks and indents are the person's
         content.notes.push_back(std::move(note));
     }},
    {"BDAY",
     [](CardContent &content, const Card &, const CardProperty &property) {
         if (CardBirthday birthday = birthdayOf(property); !birthday.text.isEmpty())
             content.birthdays.push_back(std::move(birthday));
     }},
    {"PHOTO",
     [](CardContent &content, const Card &, const CardProperty &property) {
         if (auto photo = cardPhoto(property)) content.photos.push_back(std::move(*photo));
     }},
    {"CATEGORIES", [](CardContent &content, const Card &,
                      const CardProperty &property) { takeList(content.categories, property); }},
    {"NICKNAME", [](CardContent &content, const Card &,
                    const CardProperty &property) { takeList(content.nicknames, property); }},
    {"LABEL", [](CardContent &content, const Card &,
                 const CardProperty &property) { content.addressLabels.push_back(property.text()); }},
    {"KIND", takeKind},
    {"X-ADDRESSBOOKSERVER-KIND", takeKind},
    {"MEMBER", takeMember},
    {"X-ADDRESSBOOKSERVER-MEMBER", takeMember},
};

// Of several the one that is liked best, then the first.
std::optional<QString> formattedNameOf(const Card &card)
{
    const CardProperty *best = nullptr;
    for (const CardProperty &property : card.properties()) {
        if (property.name() != "FN") continue;
        if (best == nullptr || property.preference() < best->preference()) best = &property;
    }
    if (best == nullptr) return {};
    return best->text().trimmed();
}

template<class Entry> std::vector<std::size_t> ordered(const std::vector<Entry> &entries)
{
    std::vector<std::size_t> order(entries.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (order.size() < 2) return order;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return entries[a].preference < entries[b].preference;
    });
    return order;
}
} // namespace

CardContent contentOf(const Card &card)
{
    CardContent content;
    content.formattedName = formattedNameOf(card);
    for (const CardProperty &property : card.properties()) {
        const QByteArray &name = property.name();
        if (name == "FN" || isProgramsOwn(name)) continue;
        const auto *taker = std::find_if(std::begin(takers), std::end(takers),
                                         [&](const Taker &each) { return each.name == name; });
        if (taker != std::end(takers))
            taker->take(content, card, property);
        else
            content.others.push_back({name, entryOf(card, property)});
    }
    return content;
}

QString spokenName(const CardName &name)
{
    QStringList parts{name.prefix, name.given, name.middle, name.family, name.suffix};
    parts.removeAll(QString());
    return parts.join(u' ');
}

QString shownName(const CardContent &content)
{
    QString name = content.formattedName.value_or(QString()).trimmed();
    if (name.isEmpty() && content.name) name = spokenName(*content.name).trimmed();
    if (name.isEmpty()) name = content.nicknames.value(0).trimmed();
    if (name.isEmpty()) name = content.organisation.value(0).trimmed();
    if (name.isEmpty() && !content.emails.empty()) name = content.emails.front().value.trimmed();
    if (name.isEmpty() && !content.phones.empty()) name = phoneNumber(content.phones.front().value).trimmed();
    return name;
}

std::vector<std::size_t> byPreference(const std::vector<CardEntry> &entries) { return ordered(entries); }
std::vector<std::size_t> byPreference(const std::vector<CardAddress> &addresses)
{
    return ordered(addresses);
}

QString phoneNumber(const QString &value)
{
    if (!value.startsWith("tel:"_L1, Qt::CaseInsensitive)) return value;
    const QStringList pieces = value.sliced(4).split(u';');
    QString number = QUrl::fromPercentEncoding(pieces.constFirst().toUtf8());
    for (const QString &piece : pieces.sliced(1))
        if (piece.startsWith("ext="_L1, Qt::CaseInsensitive))
            number += u" x"_s + QUrl::fromPercentEncoding(piece.sliced(4).toUtf8());
    return number;
}
