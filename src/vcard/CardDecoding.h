// The disguises of a value in a card: quoted-printable, base64, escapes, and the places where it is divided.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <vector>

// A "=" that stands for nothing stays; one at the end of a line joins the next.
QByteArray decodedQuotedPrintable(QByteArrayView coded);

// Blanks and line breaks in it do not count. What is no base64 gives nothing.
QByteArray decodedBase64(QByteArrayView coded);

// Resolves "\n", "\,", "\;", "\:", "\"" and "\\"; a backslash before anything else stays.
QString unescapedCardText(QStringView text);

// The pieces between unescaped separators, still escaped.
std::vector<QByteArrayView> piecesOf(QByteArrayView value, char separator);
QStringList piecesOf(const QString &value, QChar separator);
