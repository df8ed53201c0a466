// What a card says, in values that a program can use. It is read from a card of any version, and written as
// one of version 3.0 or 4.0 by CardWriter.
#pragma once

#include "vcard/CardDate.h"
#include "vcard/CardPhoto.h"

#include <QStringList>
#include <vector>

class Card;

struct CardName {
    QString family;
    QString given;
    QString middle;
    QString prefix;
    QString suffix;

    bool operator==(const CardName &) const = default;
};

// One of several values of a kind: number, mail, address in the web, note, or a property that has no place
// here.
struct CardEntry {
    QString value;
    QStringList types;    // lower case, sorted
    int preference = 101; // 1 is liked best; 101 stands for none said
    QString label;        // a person's own word for it

    bool operator==(const CardEntry &) const = default;
};

struct CardAddress {
    QString box;
    QString extended;
    QString street;
    QString city;
    QString region;
    QString code;
    QString country;
    QStringList types;
    int preference = 101;
    QString label;

    bool operator==(const CardAddress &) const = default;
};

struct CardBirthday {
    QString text;                 // as it stands in the card
    std::optional<CardDate> date; // nothing where the text is no date

    bool operator==(const CardBirthday &) const = default;
};

// A property that has no field of its own in CardContent.
struct OtherProperty {
    QByteArray name; // upper case
    CardEntry entry;

    bool operator==(const OtherProperty &) const = default;
};

struct CardContent {
    std::optional<QString> formattedName; // may be there and empty
    std::optional<CardName> name;
    QStringList nicknames;
    QStringList organisation; // the firm, then its parts
    // All lists are in the order of the card. A value may be empty: programs write a property for each field.
    std::vector<CardEntry> phones;
    std::vector<CardEntry> emails;
    std::vector<CardEntry> websites;
    std::vector<CardEntry> notes;
    std::vector<CardAddress> addresses;
    std::vector<QString> addressLabels; // older cards: the address as it is put on an envelope
    std::vector<CardBirthday> birthdays;
    QStringList categories;
    std::vector<CardPhoto> photos;
    std::optional<QString> uid;
    bool isGroup = false; // no person; members are the UIDs of those who belong to it
    QStringList members;
    std::vector<OtherProperty> others;

    bool operator==(const CardContent &) const = default;
};

CardContent contentOf(const Card &card);

// The parts of a name in the order in which they are said; those that are empty leave no gap.
QString spokenName(const CardName &name);

// The name to be shown: the formatted one, else that of its parts as it is spoken, else the first that is
// there of nickname, firm, mail and number. Empty if there is none.
QString shownName(const CardContent &content);

// Indexes into such a list: those liked best first, then in the order of the card.
std::vector<std::size_t> byPreference(const std::vector<CardEntry> &entries);
std::vector<std::size_t> byPreference(const std::vector<CardAddress> &addresses);

// A number that may be written as an address: "tel:+351-91%20234;ext=7" is "+351-91 234 x7".
QString phoneNumber(const QString &value);
