// The picture of a card: its own bytes, or the address at which it is said to be. Nothing is fetched here.
#pragma once

#include <optional>
#include <QByteArray>
#include <QString>

class CardProperty;

struct CardPhoto {
    QByteArray bytes;
    QString uri; // where there are no bytes

    bool operator==(const CardPhoto &) const = default;
};

// Nothing where the property holds neither.
std::optional<CardPhoto> cardPhoto(const CardProperty &property);

// "jpeg", "png", "gif", "bmp", "webp", "tiff", told by the first bytes; empty for anything else.
QByteArray pictureKind(const QByteArray &bytes);
