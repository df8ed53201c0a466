// The records of which a workbook is a chain: a number, a length, and what it says.
#pragma once

#include "report/writers/LittleEndian.h"

#include <QString>

namespace workbook
{
enum Record : quint32 {
    endOfPart = 0x0A,
    footer = 0x15,
    sheetReferences = 0x17,
    name = 0x18,
    selection = 0x1D,
    leftMargin = 0x26,
    rightMargin = 0x27,
    topMargin = 0x28,
    bottomMargin = 0x29,
    font = 0x31,
    window = 0x3D,
    pane = 0x41,
    codePage = 0x42,
    columnWidth = 0x7D,
    sheetOptions = 0x81,
    sheet = 0x85,
    pageSetup = 0xA1,
    format = 0xE0,
    sharedString = 0xFD,
    referredBook = 0x1AE,
    dimensions = 0x200,
    row = 0x208,
    sheetWindow = 0x23E,
    style = 0x293,
    beginOfPart = 0x809,
};

// The formats of cells, in the order in which they are written; those before them every workbook has.
enum CellFormat : quint32 { textCell = 16, wrappedCell = 17, headCell = 18 };

inline void putRecord(QByteArray &book, Record record, const QByteArray &body = {})
{
    put16(book, record);
    put16(book, static_cast<quint32>(body.size()));
    book.append(body);
}

inline QByteArray words(std::initializer_list<quint32> values)
{
    QByteArray body;
    for (const quint32 value : values)
        put16(body, value);
    return body;
}

// A text of less than 256 characters: their number, that they are wide, and they.
inline void putShortText(QByteArray &body, const QString &text)
{
    put8(body, static_cast<int>(text.size()));
    put8(body, 1);
    for (const QChar letter : text)
        put16(body, letter.unicode());
}

inline void putBegin(QByteArray &book, quint32 kind)
{
    putRecord(book, beginOfPart, words({0x600, kind, 0xDBB, 0x7CC, 0x41, 0, 6, 0}));
}
} // namespace workbook
