#include "report/writers/WorkbookSheet.h"

#include "report/writers/OfficeFont.h"
#include "report/ReportRows.h"
#include "report/writers/SharedStrings.h"
#include "report/writers/TextWidth.h"
#include "report/writers/WorkbookRecords.h"

#include <algorithm>

using namespace workbook;

namespace
{
constexpr qsizetype longestCell = 32767;
constexpr std::size_t recordsPerSheet = 65535; // below the row of heads
constexpr std::size_t rowsPerBlock = 32;       // whose heights stand before their cells

// Columns are measured in noughts. What is longer than a wide one wraps; a text of many lines widens it
// further.
constexpr double narrowestColumn = 8, wideColumn = 40, widestColumn = 80, padding = 1.5;
constexpr double manyLines = 10;
// In twips: the height of a line of ten points, and the most that a row can have.
constexpr qsizetype lineHeight = 255, tallestRow = 8190;

constexpr int shortSide = 11906, sideMargin = 720; // in twips, of the paper

QString cellText(const QString &text)
{
    if (text.size() <= longestCell) return text;
    const bool insidePair = text[longestCell - 2].isHighSurrogate();
    return text.left(longestCell - (insidePair ? 2 : 1)) + QChar(0x2026);
}

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
        measureColumns();
    }

    QByteArray content()
    {
        constexpr quint32 ofSheet = 0x10;
        putBegin(bytes_, ofSheet);
        putPrinting();
        putColumnWidths();
        QByteArray size;
        put32(size, 0);
        put32(size, static_cast<quint32>(last_ - first_ + 1));
        size.append(words({0, columns(), 0}));
        putRecord(bytes_, dimensions, size);
        putRows();
        putView();
        putRecord(bytes_, endOfPart);
        return std::move(bytes_);
    }

private:
    quint32 columns() const { return static_cast<quint32>(rows_.heads.size()); }

    // The room for text in each column; heads do not wrap.
    void measureColumns()
    {
        const TextMeasure heads(officeFont(letterPoints, QFont::Bold));
        const double wide = (wideColumn - padding) * nought_, widest = (widestColumn - padding) * nought_;
        for (qsizetype column = 0; column < rows_.heads.size(); ++column) {
            const double head = heads.width(rows_.heads[column]);
            double whole = std::max(narrowestColumn * nought_, head);
            for (std::size_t i = first_; i < last_; ++i)
                whole = std::max(whole, letters_.width(rows_.records[i][static_cast<std::size_t>(column)]));
            widths_.push_back(std::min(whole, std::clamp(std::max(head, whole / manyLines), wide, widest)));
        }
    }

    void putColumnWidths()
    {
        constexpr double unitsPerNought = 256;
        for (quint32 column = 0; column < widths_.size(); ++column) {
            const double noughts = widths_[column] / nought_ + padding;
            const auto units = static_cast<quint32>(noughts * unitsPerNought);
            putRecord(bytes_, columnWidth, words({column, column, units, 15, 0, 0}));
        }
    }

    // All columns on one page, lengthwise where they would be small on an upright one; as many pages as the
    // rows take, each with its number.
    void putPrinting()
    {
        constexpr quint32 usual = 0x04C1, fitsPages = 0x0100;
        putRecord(bytes_, sheetOptions, words({usual | fitsPages}));
        QByteArray text;
        const QString numbers = QStringLiteral("&C&P / &N");
        put16(text, static_cast<quint32>(numbers.size()));
        put8(text, 0);
        text.append(numbers.toLatin1());
        putRecord(bytes_, footer, text);
        putMargins();
        putPage();
    }

    void putMargins()
    {
        constexpr double twipsPerInch = 1440, above = 0.75;
        for (const auto &[side, inches] : {std::pair{leftMargin, sideMargin / twipsPerInch},
                                           {rightMargin, sideMargin / twipsPerInch},
                                           {topMargin, above},
                                           {bottomMargin, above}}) {
            QByteArray body;
            putReal(body, inches);
            putRecord(bytes_, side, body);
        }
    }

    void putPage()
    {
        constexpr quint32 a4 = 9, unscaled = 100, upright = 2, dots = 600;
        constexpr double atTheEdge = 0.3;
        double total = 0;
        for (const double width : widths_)
            total += width + padding * nought_;
        const bool isUpright = total <= shortSide - 2 * sideMargin;
        constexpr quint32 firstPage = 1, pagesAcross = 1, pagesDown = 0; // 0: as many as it takes
        QByteArray body =
            words({a4, unscaled, firstPage, pagesAcross, pagesDown, isUpright ? upright : 0, dots, dots});
        putReal(body, atTheEdge);
        putReal(body, atTheEdge);
        put16(body, 1); // copy
        putRecord(bytes_, pageSetup, body);
    }

    // The row of heads is the first one.
    void putRows()
    {
        const std::size_t rows = last_ - first_ + 1;
        for (std::size_t block = 0; block < rows; block += rowsPerBlock) {
            const std::size_t behind = std::min(rows, block + rowsPerBlock);
            for (std::size_t i = block; i < behind; ++i)
                putHeight(i);
            for (std::size_t i = block; i < behind; ++i)
                putCells(i);
        }
    }

    void putHeight(std::size_t number)
    {
        constexpr quint32 always = 0x100, ownHeight = 0x40, noFormat = 15;
        qsizetype lines = 1;
        for (std::size_t column = 0; number > 0 && column < columns(); ++column)
            lines = std::max(lines, linesOf(number, column));
        const auto height = static_cast<quint32>(std::min(tallestRow, lines * lineHeight));
        const quint32 options = always | (lines > 1 ? ownHeight : 0);
        putRecord(bytes_, row,
                  words({static_cast<quint32>(number), 0, columns(), height, 0, 0, options, noFormat}));
    }

    const std::vector<QString> &record(std::size_t number) const
    {
        return rows_.records[first_ + number - 1];
    }

    bool wraps(std::size_t number, std::size_t column) const
    {
        const QString &text = record(number)[column];
        return text.contains(u'\n') || letters_.width(text) > widths_[column];
    }
    qsizetype linesOf(std::size_t number, std::size_t column) const
    {
        return wraps(number, column) ? letters_.lines(record(number)[column], widths_[column]).size() : 1;
    }

    void putCells(std::size_t number)
    {
        for (std::size_t column = 0; column < columns(); ++column) {
            if (number == 0)
                putCell(0, column, headCell, rows_.heads[static_cast<qsizetype>(column)]);
            else
                putCell(number, column, wraps(number, column) ? wrappedCell : textCell,
                        record(number)[column]);
        }
    }

    void putCell(std::size_t number, std::size_t column, CellFormat look, const QString &text)
    {
        if (text.isEmpty()) return;
        QByteArray cell = words({static_cast<quint32>(number), static_cast<quint32>(column), look});
        put32(cell, strings_.number(cellText(text)));
        putRecord(bytes_, sharedString, cell);
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
    TextMeasure letters_{officeFont(letterPoints, QFont::Normal)};
    double nought_ = letters_.width(u"0");
    std::vector<double> widths_;
    QByteArray bytes_;
};
} // namespace

std::size_t workbookSheets(const ReportRows &rows)
{
    return std::max<std::size_t>(1, (rows.records.size() + recordsPerSheet - 1) / recordsPerSheet);
}

QByteArray workbookSheet(const ReportRows &rows, std::size_t number, SharedStrings &strings)
{
    return Sheet(rows, number, strings).content();
}
