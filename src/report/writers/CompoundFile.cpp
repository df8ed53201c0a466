#include "report/writers/CompoundFile.h"

#include "report/writers/LittleEndian.h"

#include <algorithm>
#include <QString>

namespace
{
constexpr quint32 sectorSize = 512;
constexpr quint32 numbersPerSector = sectorSize / 4;
constexpr quint32 shortestStream = 4096;
constexpr quint32 tablesInHeader =
    109; // sector numbers of the allocation table that the header itself has room for
constexpr quint32 listEntries =
    numbersPerSector - 1; // of an overflow sector, whose last number leads to the next

enum SectorMark : quint32 {
    overflowSector = 0xFFFFFFFC,
    tableSector = 0xFFFFFFFD,
    endOfChain = 0xFFFFFFFE,
    unused = 0xFFFFFFFF,
};

quint32 parts(quint32 whole, quint32 part) { return (whole + part - 1) / part; }

// What lies where, in sectors: the stream, the directory, the allocation table, and the overflow list of the
// table's own sectors.
struct Layout {
    explicit Layout(quint32 streamBytes) : stream(parts(streamBytes, sectorSize))
    {
        while (table * numbersPerSector < end()) {
            ++table;
            overflow = table > tablesInHeader ? parts(table - tablesInHeader, listEntries) : 0;
        }
    }
    quint32 directoryAt() const { return stream; }
    quint32 tableAt() const { return stream + 1; }
    quint32 overflowAt() const { return tableAt() + table; }
    quint32 end() const { return overflowAt() + overflow; }

    quint32 stream;
    quint32 table = 0;
    quint32 overflow = 0;
};

void fill(QByteArray &file, quint32 mark, quint32 times)
{
    for (quint32 i = 0; i < times; ++i)
        put32(file, mark);
}

// Sector numbers of the allocation table, from the given one on, in a place with room for so many.
void putTableSectors(QByteArray &file, const Layout &layout, quint32 first, quint32 room)
{
    const quint32 last = std::min(layout.table, first + room);
    for (quint32 i = first; i < last; ++i)
        put32(file, layout.tableAt() + i);
    fill(file, unused, first + room - std::max(first, last));
}

void putHeader(QByteArray &file, const Layout &layout)
{
    file.append("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);
    file.append(16, '\0');
    for (const quint32 word : {0x3Eu, 3u, 0xFFFEu, 9u, 6u}) // version, byte order, sizes as powers of two
        put16(file, word);
    file.append(10, '\0');
    put32(file, layout.table);
    put32(file, layout.directoryAt());
    put32(file, 0);
    put32(file, shortestStream);
    put32(file, endOfChain); // no sectors for short streams
    put32(file, 0);
    put32(file, layout.overflow > 0 ? layout.overflowAt() : quint32{endOfChain});
    put32(file, layout.overflow);
    putTableSectors(file, layout, 0, tablesInHeader);
}

enum EntryKind { noEntry = 0, streamEntry = 2, rootEntry = 5 };

void putEntry(QByteArray &file, EntryKind kind, const QString &name, quint32 child, quint32 start,
              quint32 size)
{
    constexpr qsizetype nameBytes = 64;
    const qsizetype begin = file.size();
    for (const QChar letter : name)
        put16(file, letter.unicode());
    file.append(begin + nameBytes - file.size(), '\0');
    put16(file, kind == noEntry ? 0 : static_cast<quint32>(2 * (name.size() + 1)));
    put8(file, kind);
    put8(file, 1); // black, in the balanced tree of one node that the entries form
    put32(file, unused);
    put32(file, unused);
    put32(file, child);
    file.append(36, '\0');
    put32(file, start);
    put32(file, size);
    put32(file, 0);
}

void putDirectory(QByteArray &file, const QString &streamName, quint32 streamBytes)
{
    putEntry(file, rootEntry, QStringLiteral("Root Entry"), 1, endOfChain, 0);
    putEntry(file, streamEntry, streamName, unused, 0, streamBytes);
    putEntry(file, noEntry, {}, unused, 0, 0);
    putEntry(file, noEntry, {}, unused, 0, 0);
}

void putTable(QByteArray &file, const Layout &layout)
{
    for (quint32 i = 1; i < layout.stream; ++i)
        put32(file, i);
    put32(file, endOfChain);
    put32(file, endOfChain); // the directory
    fill(file, tableSector, layout.table);
    fill(file, overflowSector, layout.overflow);
    fill(file, unused, layout.table * numbersPerSector - layout.end());
}

void putOverflow(QByteArray &file, const Layout &layout)
{
    for (quint32 i = 0; i < layout.overflow; ++i) {
        putTableSectors(file, layout, tablesInHeader + i * listEntries, listEntries);
        put32(file, i + 1 < layout.overflow ? layout.overflowAt() + i + 1 : quint32{endOfChain});
    }
}
} // namespace

QByteArray compoundFile(const QString &streamName, const QByteArray &stream)
{
    const quint32 streamBytes = std::max(static_cast<quint32>(stream.size()), shortestStream);
    const Layout layout(streamBytes);
    QByteArray file;
    file.reserve(static_cast<qsizetype>(layout.end() + 1) * sectorSize);
    putHeader(file, layout);
    file.append(stream);
    file.append(static_cast<qsizetype>(layout.stream) * sectorSize - stream.size(), '\0');
    putDirectory(file, streamName, streamBytes);
    putTable(file, layout);
    putOverflow(file, layout);
    return file;
}
