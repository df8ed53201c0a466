// What a table does not say of itself: its encoding, what divides its cells, and whether its first row names
// them.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

struct CsvText {
    QString text;
    QByteArray encoding; // "utf-8-sig", "utf-8", "utf-16", "cp1252", or the name that was asked for
};

// By the mark, the zeros of UTF-16, or because it is sound UTF-8; the rest is windows-1252.
CsvText csvText(const QByteArray &file);
// In an encoding that a person has chosen.
CsvText csvText(const QByteArray &file, const QByteArray &encoding);

// The one of , ; TAB | under which most of the first rows have one and the same number of cells.
QChar csvDelimiter(const QString &text);

// Takes off a first line "sep=;" and tells what it names; null where there is none.
QChar takeSeparatorLine(QString &text);

// A row that holds no address, long number or date is one of names.
bool isHeaderRow(const QStringList &row);
