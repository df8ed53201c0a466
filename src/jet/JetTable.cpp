#include "jet/JetTable.h"

#include <cmath>
#include <functional>
#include <optional>

namespace
{
enum ColumnType : quint8 { YesNo = 1, Integer = 3, Long = 4, Single = 6, DateTime = 8, Text = 10, Memo = 12 };

struct Column {
    quint8 type;
    quint16 number;        // bit of the null mask
    quint16 variableIndex; // among the values of variable length
    bool fixed;
    bool counter;        // numbers the rows: never Null
    quint16 fixedOffset; // behind the row's column count
    QString name;
};

constexpr quint8 definitionPage = 2;
constexpr quint8 bitmapPage = 5;

// Definition.
constexpr int nextPageAt = 4;
constexpr int joinedFrom = 8;
constexpr int rowCountAt = 16;
constexpr int columnCountAt = 45;
constexpr int indexCountAt = 51;
constexpr int usageMapAt = 55;
constexpr int columnsAt = 63;
constexpr int indexLength = 12;
constexpr int columnLength = 25;
constexpr quint8 fixedFlag = 1;
constexpr quint8 counterFlag = 4;
// No table has more columns and indexes than these; the format allows 255 and 32.
constexpr int mostColumns = 1024;
constexpr quint32 mostIndexes = 1024;

// Where a row was moved on again and again, somebody tampered with the file.
constexpr int mostMoves = 8;

// Memo.
constexpr int memoHeader = 12;
constexpr quint32 memoLengthMask = 0x3fffffff;
constexpr quint32 memoInline = 0x80000000;
constexpr quint32 memoOneRow = 0x40000000;

class TableReader
{
public:
    TableReader(const JetPages &pages, quint32 definition);

    void read(JetFile::Sink &sink);

private:
    using Cell = JetFile::Cell;

    QByteArray joinedDefinition() const;
    void readColumns(const Bytes &definition);
    void readUsageMap(const Bytes &map);
    void addPages(const Bytes &bitmap, quint32 firstPage);

    quint32 readPage(quint32 page, JetFile::Sink &sink);
    Bytes followed(JetPages::Row row) const;
    std::vector<Cell> cells(const Bytes &row);
    Cell cell(const Column &column, const Bytes &value);
    QString memo(const Bytes &value);
    void spend(qint64 bytes);
    QByteArray chainedMemo(quint32 pointer, qsizetype length) const;

    const JetPages &pages_;
    quint32 definition_;
    std::vector<Column> columns_;
    std::vector<quint32> dataPages_;
    quint32 rowCount_ = 0;
    qint64 bytesLeft_; // what the table may still hold
};

// One byte a character, until a zero byte switches to two bytes a character, and another one back.
QString compressedText(const Bytes &bytes)
{
    QString text;
    text.reserve(bytes.size());
    bool narrow = true;
    for (qsizetype at = 0; at < bytes.size();) {
        if (bytes.u8(at) == 0) {
            narrow = !narrow;
            ++at;
        } else if (narrow) {
            text += QChar(bytes.u8(at++));
        } else {
            text += QChar(bytes.u16(at));
            at += 2;
        }
    }
    return text;
}

QString textOf(const Bytes &bytes)
{
    constexpr quint16 compressed = 0xfeff;
    if (bytes.size() >= 2 && bytes.u16(0) == compressed) return compressedText(bytes.from(2));
    if (bytes.size() % 2 != 0) raiseDamage("a text ends within a character");
    QString text;
    text.reserve(bytes.size() / 2);
    for (qsizetype at = 0; at < bytes.size(); at += 2)
        text += QChar(bytes.u16(at));
    return text;
}

// Whole days since 1899-12-30, before it too; the fraction is the time of the day, counted forwards always.
QDateTime dateOf(double value)
{
    constexpr double firstDay = -657434; // 0100-01-01
    constexpr double lastDay = 2958466;  // behind 9999-12-31
    constexpr int secondsOfADay = 24 * 60 * 60;
    if (!(value > firstDay - 1 && value < lastDay)) raiseDamage("a date that no calendar has");
    const double day = std::trunc(value);
    const auto second = std::llround(std::abs(value - day) * secondsOfADay);
    return QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(day)), QTime(0, 0), Qt::UTC)
        .addSecs(second);
}

// As the file has it: whoever stores it again finds the shortest number that is the same float.
double singleOf(float value)
{
    if (!std::isfinite(value)) raiseDamage("a number that is none");
    return value;
}

TableReader::TableReader(const JetPages &pages, quint32 definition)
    : pages_(pages), definition_(definition), bytesLeft_(JetFile::bytesOfAByte * pages.fileSize())
{
    const QByteArray joined = joinedDefinition();
    const Bytes bytes{joined};
    rowCount_ = bytes.u32(rowCountAt);
    readColumns(bytes);
    readUsageMap(pages_.row(JetPages::pointerOf(bytes.u32(usageMapAt))).data);
}

// A definition that is longer than a page goes on in the next ones.
QByteArray TableReader::joinedDefinition() const
{
    QByteArray joined;
    quint32 next = definition_;
    for (quint32 pages = 0; next != 0; ++pages) {
        const Bytes page = pages_.page(next);
        if (page.u8(0) != definitionPage || pages == pages_.count())
            raiseDamage("a table without a definition");
        const Bytes piece = joined.isEmpty() ? page : page.from(joinedFrom);
        joined.append(piece.data(), piece.size());
        next = page.u32(nextPageAt);
    }
    return joined;
}

void TableReader::readColumns(const Bytes &definition)
{
    const int count = definition.u16(columnCountAt);
    const quint32 indexes = definition.u32(indexCountAt);
    if (count > mostColumns || indexes > mostIndexes) raiseDamage("a definition out of all measure");
    const qsizetype first = columnsAt + qsizetype{indexLength} * indexes;
    qsizetype nameAt = first + qsizetype{columnLength} * count;
    for (int i = 0; i < count; ++i) {
        const Bytes column = definition.part(first + qsizetype{columnLength} * i, columnLength);
        const quint16 nameLength = definition.u16(nameAt);
        const quint8 flags = column.u8(15);
        columns_.push_back({column.u8(0), column.u16(5), column.u16(7), (flags & fixedFlag) != 0,
                            (flags & counterFlag) != 0, column.u16(21),
                            textOf(definition.part(nameAt + 2, nameLength))});
        nameAt += 2 + nameLength;
    }
}

// Which pages are the table's: a bitmap in the map itself, or a list of pages that are bitmaps.
void TableReader::readUsageMap(const Bytes &map)
{
    constexpr qsizetype bitmapFrom = 4;
    if (map.u8(0) == 0) return addPages(map.from(1 + sizeof(quint32)), map.u32(1));
    if (map.u8(0) != 1) raiseDamage("a map of pages of no known kind");
    constexpr quint32 pagesOfABitmap = (JetPages::pageSize - bitmapFrom) * 8;
    const auto bitmaps = static_cast<quint32>((map.size() - 1) / qsizetype{sizeof(quint32)});
    for (quint32 i = 0; i < bitmaps; ++i) {
        const quint32 number = map.u32(1 + qsizetype{sizeof(quint32)} * i);
        if (number == 0) continue;
        const Bytes page = pages_.page(number);
        if (page.u8(0) != bitmapPage) raiseDamage("a map of pages that is none");
        addPages(page.from(bitmapFrom), i * pagesOfABitmap);
    }
}

void TableReader::addPages(const Bytes &bitmap, quint32 firstPage)
{
    for (qsizetype i = 0; i < bitmap.size() * 8; ++i) {
        if (!(bitmap.u8(i / 8) & (1U << (i % 8)))) continue;
        const quint32 page = firstPage + static_cast<quint32>(i);
        if (page >= pages_.count()) raiseDamage("a page of the table lies beyond the end of the file");
        dataPages_.push_back(page);
    }
}

void TableReader::read(JetFile::Sink &sink)
{
    QStringList names;
    for (const Column &column : columns_)
        names << column.name;
    sink.columns(names);
    quint32 rows = 0;
    for (const quint32 page : dataPages_)
        rows += readPage(page, sink);
    if (rows < rowCount_) raiseDamage("rows of the table are missing");
}

// Returns how many rows it held. Among a table's pages are those of its indexes and of its long texts.
quint32 TableReader::readPage(quint32 number, JetFile::Sink &sink)
{
    constexpr int ownerAt = 4;
    const Bytes page = pages_.page(number);
    if (page.u8(0) != JetPages::dataPage || page.u32(ownerAt) != definition_) return 0;
    quint32 read = 0;
    const int rows = pages_.rowCount(number);
    for (int i = 0; i < rows; ++i) {
        const JetPages::Row row = pages_.row({number, static_cast<quint16>(i)});
        if (row.deleted) continue;
        sink.row(cells(followed(row)));
        ++read;
    }
    return read;
}

Bytes TableReader::followed(JetPages::Row row) const
{
    for (int moves = 0; row.moved; ++moves) {
        if (moves == mostMoves) raiseDamage("a row that was moved for ever");
        row = pages_.row(JetPages::pointerOf(row.data.u32(0)));
    }
    return row.data;
}

// A row: column count, fixed values, variable values, their end, their offsets from the last to the first,
// their count, and a bit a column that is clear for Null.
std::vector<JetFile::Cell> TableReader::cells(const Bytes &row)
{
    spend(row.size() + static_cast<qint64>(columns_.size()));
    const int columnCount = row.u16(0);
    const qsizetype mask = row.size() - (columnCount + 7) / 8;
    const int variableCount = row.u16(mask - 2);
    const auto variableOffset = [&](int index) { return row.u16(mask - 4 - 2 * qsizetype{index}); };
    const auto valueOf = [&](const Column &column) -> std::optional<Bytes> {
        if (column.fixed) return row.from(2 + qsizetype{column.fixedOffset});
        if (column.variableIndex >= variableCount) return std::nullopt;
        const int start = variableOffset(column.variableIndex);
        return row.part(start, variableOffset(column.variableIndex + 1) - start);
    };
    std::vector<Cell> cells;
    cells.reserve(columns_.size());
    for (const Column &column : columns_) {
        const bool there = column.number < columnCount;
        const bool bit = there && (row.u8(mask + column.number / 8) & (1U << (column.number % 8)));
        const std::optional<Bytes> value = bit && column.type != YesNo ? valueOf(column) : std::nullopt;
        if (column.type == YesNo && there)
            cells.emplace_back(bit);
        else
            cells.push_back(value ? cell(column, *value) : Cell());
        if (column.counter && std::holds_alternative<std::monostate>(cells.back()))
            raiseDamage("a row without a number");
    }
    return cells;
}

JetFile::Cell TableReader::cell(const Column &column, const Bytes &value)
{
    switch (column.type) {
    case Integer:
        return qint64{value.number<qint16>(0)};
    case Long:
        return qint64{value.number<qint32>(0)};
    case Single:
        return singleOf(value.number<float>(0));
    case DateTime:
        return dateOf(value.number<double>(0));
    case Text:
        spend(value.size());
        return textOf(value);
    case Memo:
        return memo(value);
    default:
        return {};
    }
}

void TableReader::spend(qint64 bytes)
{
    bytesLeft_ -= bytes;
    if (bytesLeft_ < 0) raiseDamage("a table beyond all measure");
}

// A long text stands in the row itself, in one other row, or in a chain of them.
QString TableReader::memo(const Bytes &value)
{
    const quint32 head = value.u32(0);
    const qsizetype length = head & memoLengthMask;
    spend(length);
    if (head & memoInline) return textOf(value.part(memoHeader, length));
    const quint32 pointer = value.u32(4);
    if (head & memoOneRow) return textOf(pages_.row(JetPages::pointerOf(pointer)).data.part(0, length));
    return textOf(Bytes(chainedMemo(pointer, length)));
}

// Each row holds the place of the next one and at least a byte, so the length bounds the walk.
QByteArray TableReader::chainedMemo(quint32 pointer, qsizetype length) const
{
    QByteArray text;
    while (text.size() < length) {
        if (pointer == 0) raiseDamage("a long text ends too early");
        const Bytes row = pages_.row(JetPages::pointerOf(pointer)).data;
        const Bytes piece = row.from(sizeof(quint32));
        if (piece.size() == 0) raiseDamage("a long text with an empty piece");
        text.append(piece.data(), piece.size());
        pointer = row.u32(0);
    }
    return text.first(length);
}
} // namespace

void readJetTable(const JetPages &pages, quint32 definition, JetFile::Sink &sink)
{
    TableReader(pages, definition).read(sink);
}

JetFile::Table readJetTable(const JetPages &pages, quint32 definition)
{
    struct Whole final : JetFile::Sink {
        void columns(const QStringList &names) override { table.columns = names; }
        void row(const std::vector<JetFile::Cell> &cells) override { table.rows.push_back(cells); }
        JetFile::Table table;
    } whole;
    readJetTable(pages, definition, whole);
    return std::move(whole.table);
}
