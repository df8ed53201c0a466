#include "platform/report/SpreadsheetWriter.h"

#include "platform/report/CompoundFile.h"
#include "platform/report/LittleEndian.h"
#include "platform/report/ReportRows.h"
#include "platform/report/SharedStrings.h"
#include "platform/report/TextWidth.h"

#include <algorithm>

namespace
{
constexpr qsizetype longestCell = 32767;
constexpr std::size_t recordsPerSheet = 65535; // below the row of heads
constexpr qsizetype longestSheetName = 31;
constexpr int narrowestColumn = 8, widestColumn = 60; // in characters

// The numbers of the records, of which a workbook is a chain.
enum Record : quint32 {
    endOfPart = 0x0A,
    selection = 0x1D,
    font = 0x31,
    window = 0x3D,
    pane = 0x41,
    codePage = 0x42,
    columnWidth = 0x7D,
    sheet = 0x85,
    format = 0xE0,
    sharedString = 0xFD,
    dimensions = 0x200,
    sheetWindow = 0x23E,
    style = 0x293,
    beginOfPart = 0x809,
};

// The formats of cells, in the order in which they are written; those before them every workbook has.
enum CellFormat : quint32 { textCell = 16, wrappedCell = 17, headCell = 18 };
constexpr quint32 boldFont = 5; // the fifth: number four does not exist

void putRecord(QByteArray &book, Record record, const QByteArray &body = {})
{
    put16(book, record);
    put16(book, static_cast<quint32>(body.size()));
    book.append(body);
}

QByteArray words(std::initializer_list<quint32> values)
{
    QByteArray body;
    for (const quint32 value : values)
        put16(body, value);
    return body;
}

// A text of less than 256 characters: their number, that they are wide, and they.
void putShortText(QByteArray &body, const QString &text)
{
    put8(body, static_cast<int>(text.size()));
    put8(body, 1);
    for (const QChar letter : text)
        put16(body, letter.unicode());
}

void putBegin(QByteArray &book, quint32 kind)
{
    putRecord(book, beginOfPart, words({0x600, kind, 0xDBB, 0x7CC, 0x41, 0, 6, 0}));
}

void putFont(QByteArray &book, quint32 weight)
{
    constexpr quint32 tenPoints = 200, automaticColour = 0x7FFF;
    QByteArray body = words({tenPoints, 0, automaticColour, weight, 0, 0, 0});
    putShortText(body, QStringLiteral("Arial"));
    putRecord(book, font, body);
}

struct FormatLook {
    quint32 fontNumber = 0;
    quint32 number = 0;   // of the number format: 49 is text
    quint32 parent = 1;   // 1 for a cell's format, 0xFFF5 for that of a style
    int alignment = 0x20; // 0x08 wraps, 0x20 stands at the bottom
    int changed = 0;      // what it has of its own: 0x04 number format, 0x08 font, 0x10 alignment
};

void putFormat(QByteArray &book, const FormatLook &look)
{
    QByteArray body = words({look.fontNumber, look.number, look.parent});
    for (const int byte : {look.alignment, 0, 0, look.changed})
        put8(body, byte);
    body.append(8, '\0'); // no borders
    put16(body, 0x20C0);  // no fill
    putRecord(book, format, body);
}

void putFormats(QByteArray &book)
{
    constexpr quint32 ofStyle = 0xFFF5, textNumber = 49;
    putFormat(book, {.parent = ofStyle});
    for (int i = 1; i < 15; ++i)
        putFormat(book, {.parent = ofStyle, .changed = 0xF4});
    putFormat(book, {});
    putFormat(book, {.number = textNumber, .alignment = 0, .changed = 0x14});
    putFormat(book, {.number = textNumber, .alignment = 0x08, .changed = 0x14});
    putFormat(book, {.fontNumber = boldFont, .number = textNumber, .alignment = 0, .changed = 0x1C});
    putRecord(book, style, words({0x8000, 0xFF00})); // the style that every cell begins with
}

QString sheetName(const QString &title, std::size_t number)
{
    QString name = title;
    for (const QChar forbidden : QStringLiteral("[]:*?/\\'\n"))
        name.replace(forbidden, u' ');
    const QString ending = number == 0 ? QString() : QStringLiteral(" (%1)").arg(number + 1);
    name = name.simplified().left(longestSheetName - ending.size()) + ending;
    return name.isEmpty() ? QStringLiteral("1") : name;
}

QString cellText(const QString &text)
{
    if (text.size() <= longestCell) return text;
    const bool insidePair = text[longestCell - 2].isHighSurrogate();
    return text.left(longestCell - (insidePair ? 2 : 1)) + QChar(0x2026);
}

// One sheet with its part of the records.
class Sheet
{
public:
    Sheet(const ReportRows &rows, std::size_t number, SharedStrings &strings)
        : rows_(rows),
          first_(number * recordsPerSheet),
          last_(std::min(rows.records.size(), first_ + recordsPerSheet)),
          inFront_(number == 0),
          strings_(strings)
    {
    }

    QByteArray content()
    {
        putBegin(bytes_, 0x10);
        putColumnWidths();
        QByteArray size;
        put32(size, 0);
        put32(size, static_cast<quint32>(last_ - first_ + 1));
        size.append(words({0, static_cast<quint32>(rows_.heads.size()), 0}));
        putRecord(bytes_, dimensions, size);
        putCells();
        putView();
        putRecord(bytes_, endOfPart);
        return std::move(bytes_);
    }

private:
    void putColumnWidths()
    {
        for (qsizetype column = 0; column < rows_.heads.size(); ++column) {
            int width = std::max(narrowestColumn, textWidth(rows_.heads[column]) + 2);
            for (std::size_t i = first_; i < last_ && width < widestColumn; ++i)
                width = std::max(width, textWidth(rows_.records[i][static_cast<std::size_t>(column)]) + 2);
            const auto number = static_cast<quint32>(column);
            const auto units = static_cast<quint32>(std::min(width, widestColumn) * 256);
            putRecord(bytes_, columnWidth, words({number, number, units, 15, 0, 0}));
        }
    }

    void putCells()
    {
        for (qsizetype column = 0; column < rows_.heads.size(); ++column)
            putCell(0, static_cast<quint32>(column), headCell, rows_.heads[column]);
        for (std::size_t i = first_; i < last_; ++i) {
            const auto &record = rows_.records[i];
            for (std::size_t column = 0; column < record.size(); ++column) {
                const auto look = record[column].contains(u'\n') ? wrappedCell : textCell;
                putCell(static_cast<quint32>(i - first_ + 1), static_cast<quint32>(column), look,
                        record[column]);
            }
        }
    }

    void putCell(quint32 row, quint32 column, CellFormat look, const QString &text)
    {
        if (text.isEmpty()) return;
        for (const quint32 word : {quint32{sharedString}, 10u, row, column, quint32{look}})
            put16(bytes_, word);
        put32(bytes_, strings_.number(cellText(text)));
    }

    // The heads stay where they are when the records move under them.
    void putView()
    {
        constexpr quint32 usual = 0xB6, frozen = 0x108, chosen = 0x600, gridColour = 0x40;
        const quint32 options = usual | frozen | (inFront_ ? chosen : 0);
        putRecord(bytes_, sheetWindow, words({options, 0, 0, gridColour, 0, 0, 0, 0, 0}));
        putRecord(bytes_, pane, words({0, 1, 1, 0, 2}));
        QByteArray cursor;
        put8(cursor, 2);
        cursor.append(words({1, 0, 0, 1, 1, 1}));
        put16(cursor, 0);
        putRecord(bytes_, selection, cursor);
    }

    const ReportRows &rows_;
    std::size_t first_, last_;
    bool inFront_;
    SharedStrings &strings_;
    QByteArray bytes_;
};

void putGlobals(QByteArray &book)
{
    constexpr quint32 normal = 400, bold = 700;
    putBegin(book, 0x05);
    putRecord(book, codePage, words({1200}));
    putRecord(book, window, words({0, 0, 0x3A5C, 0x23BE, 0x38, 0, 0, 1, 0x258}));
    for (int i = 0; i < 4; ++i)
        putFont(book, normal);
    putFont(book, bold);
    putFormats(book);
}

// Where a sheet begins is told before all of them, when it is not known yet. Returns the place of that
// number.
qsizetype putSheetEntry(QByteArray &book, const QString &name)
{
    QByteArray body(6, '\0');
    putShortText(body, name);
    putRecord(book, sheet, body);
    return book.size() - body.size();
}
} // namespace

QByteArray spreadsheetContent(const ReportRows &rows)
{
    SharedStrings strings;
    const std::size_t sheets =
        std::max<std::size_t>(1, (rows.records.size() + recordsPerSheet - 1) / recordsPerSheet);
    std::vector<QByteArray> contents;
    for (std::size_t i = 0; i < sheets; ++i)
        contents.push_back(Sheet(rows, i, strings).content());

    QByteArray book;
    putGlobals(book);
    std::vector<qsizetype> entries;
    for (std::size_t i = 0; i < sheets; ++i)
        entries.push_back(putSheetEntry(book, sheetName(rows.title, i)));
    strings.write(book);
    putRecord(book, endOfPart);
    for (std::size_t i = 0; i < sheets; ++i) {
        overwrite32(book, entries[i], static_cast<quint32>(book.size()));
        book.append(contents[i]);
    }
    return compoundFile(QStringLiteral("Workbook"), book);
}
