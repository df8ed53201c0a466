// Texts in the encodings of the world, by the names that people and files give them ("windows-1252",
// "utf-16", "Shift_JIS"). All systems know the same ones.
#pragma once

#include <QByteArray>
#include <QString>

struct DecodedText {
    QString text;
    bool known = false; // whether there is an encoding of that name; there is no text without
    bool sound = false; // whether every byte had a meaning; U+FFFD stands where one had none
};

// What those bytes, which are all there are, say.
DecodedText decodedText(QByteArrayView bytes, const QByteArray &encoding);

// The bytes of a text, with "?" for a character that the encoding has not. None where there is no such
// encoding.
QByteArray encodedText(const QString &text, const QByteArray &encoding);
