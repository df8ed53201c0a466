#include "report/writers/SpreadsheetWriter.h"

#include "report/writers/CompoundFile.h"
#include "report/writers/OfficeFont.h"
#include "report/ReportRows.h"
#include "report/writers/SharedStrings.h"
#include "report/writers/WorkbookRecords.h"
#include "report/writers/WorkbookSheet.h"

using namespace workbook;

namespace
{
constexpr qsizetype longestSheetName = 31;

constexpr quint32 boldFont = 5; // the fifth: number four does not exist

void putFont(QByteArray &book, quint32 weight)
{
    constexpr quint32 automaticColour = 0x7FFF;
    QByteArray body = words({letterPoints * 20, 0, automaticColour, weight, 0, 0, 0});
    putShortText(body, officeFontName());
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
// Printed, each page of a sheet begins with the sheet's first row: a name that the format knows refers to it.
void putPrintTitles(QByteArray &book, quint32 sheets)
{
    constexpr quint32 thisBook = 0x0401, builtIn = 0x20, printTitles = 7, area = 0x3B, lastColumn = 0xFF;
    putRecord(book, referredBook, words({sheets, thisBook}));
    QByteArray references = words({sheets});
    for (quint32 i = 0; i < sheets; ++i)
        references.append(words({0, i, i}));
    putRecord(book, sheetReferences, references);
    for (quint32 i = 0; i < sheets; ++i) {
        QByteArray formula;
        put8(formula, area);
        formula.append(words({i, 0, 0, 0, lastColumn}));
        QByteArray body = words({builtIn});
        put8(body, 0); // no key
        put8(body, 1); // letter
        body.append(words({static_cast<quint32>(formula.size()), 0, i + 1, 0, 0}));
        put8(body, 0);
        put8(body, printTitles);
        putRecord(book, name, body + formula);
    }
}
} // namespace

QByteArray spreadsheetContent(const ReportRows &rows)
{
    SharedStrings strings;
    const std::size_t sheets = workbookSheets(rows);
    std::vector<QByteArray> contents;
    for (std::size_t i = 0; i < sheets; ++i)
        contents.push_back(workbookSheet(rows, i, strings));

    QByteArray book;
    putGlobals(book);
    std::vector<qsizetype> entries;
    for (std::size_t i = 0; i < sheets; ++i)
        entries.push_back(putSheetEntry(book, sheetName(rows.title, i)));
    putPrintTitles(book, static_cast<quint32>(sheets));
    strings.write(book);
    putRecord(book, endOfPart);
    for (std::size_t i = 0; i < sheets; ++i) {
        overwrite32(book, entries[i], static_cast<quint32>(book.size()));
        book.append(contents[i]);
    }
    return compoundFile(QStringLiteral("Workbook"), book);
}
