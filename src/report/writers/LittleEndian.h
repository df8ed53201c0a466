// Numbers as the binary file formats of this folder hold them: the lowest byte first.
#pragma once

#include <bit>
#include <QByteArray>
#include <QtEndian>

inline void put8(QByteArray &bytes, int value) { bytes.append(static_cast<char>(value)); }

inline void put16(QByteArray &bytes, quint32 value)
{
    const quint16 swapped = qToLittleEndian(static_cast<quint16>(value));
    bytes.append(reinterpret_cast<const char *>(&swapped), sizeof swapped);
}

inline void put32(QByteArray &bytes, quint32 value)
{
    const quint32 swapped = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&swapped), sizeof swapped);
}

inline void overwrite16(QByteArray &bytes, qsizetype at, quint32 value)
{
    qToLittleEndian(static_cast<quint16>(value), bytes.data() + at);
}

inline void overwrite32(QByteArray &bytes, qsizetype at, quint32 value)
{
    qToLittleEndian(value, bytes.data() + at);
}

inline void putReal(QByteArray &bytes, double value)
{
    const quint64 swapped = qToLittleEndian(std::bit_cast<quint64>(value));
    bytes.append(reinterpret_cast<const char *>(&swapped), sizeof swapped);
}
