// Writes cards of version 3.0, which every program reads, and of 4.0: UTF-8, lines ended by CR LF and folded
// at 75 octets between characters, without control characters.
#pragma once

#include "vcard/Card.h"

#include <QByteArray>
#include <QStringList>

struct CardAddress;
struct CardContent;
struct CardDate;
struct CardEntry;
struct CardPhoto;

class CardWriter
{
public:
    struct Parameter {
        QByteArray name; // upper case
        QStringList values;
    };
    using Parameters = std::vector<Parameter>;

    // Labels take groups from that number on, so that lines for a card which has groups do not join them.
    explicit CardWriter(CardVersion version = CardVersion::V30, int firstGroup = 1);

    void text(const QByteArray &name, const QString &value, const Parameters &parameters = {});
    // Divided at ";", at ",".
    void parts(const QByteArray &name, const QStringList &parts, const Parameters &parameters = {});
    void list(const QByteArray &name, const QStringList &values, const Parameters &parameters = {});
    // An address is no text: nothing in it is escaped.
    void uri(const QByteArray &name, const QString &value, const Parameters &parameters = {});

    // With its types, its preference and its label.
    void entry(const QByteArray &name, const CardEntry &entry);
    void website(const CardEntry &entry);
    void address(const CardAddress &address);
    void birthday(const CardDate &date);
    void photo(const CardPhoto &photo);

    // All that the content says but `others`, which no field of this program holds: a card that has such
    // properties is kept and patched. There is always a name to be shown.
    void content(const CardContent &content);

    const QByteArray &lines() const { return lines_; } // written so far
    QByteArray card() const;                           // the same as a whole card

private:
    bool isVersion4() const { return version_ == CardVersion::V40; }
    Parameters parametersOf(const QStringList &types, int preference) const;
    QByteArray labelled(const QByteArray &name, const QString &label);
    void names(const CardContent &content);
    void group(const CardContent &content);
    void line(const QByteArray &name, const Parameters &parameters, const QByteArray &value);

    CardVersion version_;
    int group_;
    QByteArray lines_;
};

// A whole card of that content.
QByteArray writtenCard(const CardContent &content, CardVersion version = CardVersion::V30);
