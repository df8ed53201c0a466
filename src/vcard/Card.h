// A card as it was read: its properties in the order of the file, and its bytes as they stood there. What it
// says of a person is told by CardContent.
#pragma once

#include "vcard/CardProperty.h"

enum class CardVersion { V21, V30, V40 };

class Card
{
public:
    // A card whose bytes are those places of the file; more may be told with add and close.
    Card(QByteArray file, CardProperty::Place begin);

    void add(CardProperty property);
    bool joinRow(QByteArrayView row, qsizetype end); // to the last property; false where it would be too long
    void close(qsizetype end);                       // where the line of its END is over

    CardVersion version() const;                   // 2.1 where it says none
    qsizetype line() const { return begin_.line; } // of its BEGIN, from 1
    const std::vector<CardProperty> &properties() const { return properties_; }
    const CardProperty *first(QByteArrayView name) const; // null without one; owned by the card
    std::vector<const CardProperty *> all(QByteArrayView name) const;

    // What a person has called this property: the label of its group, without a program's own decoration.
    QString label(const CardProperty &property) const;

    // The bytes of the card: as in the file, or where another card stood inside it or its END was missing,
    // put together of its own properties' bytes.
    QByteArray source() const;
    // True where source() is a run of the file, and the places in file() are those of the properties.
    bool isWhole() const { return end_ > 0 && !isMixed_; }
    void setMixed() { isMixed_ = true; } // another card stands inside it
    const QByteArray &file() const { return file_; }
    qsizetype begin() const { return begin_.begin; }
    qsizetype end() const { return end_; }

private:
    QByteArray file_; // shared with all cards of the file
    CardProperty::Place begin_;
    qsizetype end_ = 0; // 0 while it is open
    bool isMixed_ = false;
    std::vector<CardProperty> properties_;
};
