// Ways of harming the bytes of a file, each by a chance that its caller keeps, so that a run can be repeated.
#pragma once

#include <functional>
#include <QByteArray>
#include <random>

using Estrago = std::function<QByteArray(QByteArray, std::mt19937 &)>;

inline int Ao_Acaso(std::mt19937 &acaso, qsizetype limite)
{
    return static_cast<int>(acaso() % static_cast<std::uint32_t>(limite));
}

inline QByteArray Trocar_Bits(QByteArray bytes, std::mt19937 &acaso)
{
    for (int i = Ao_Acaso(acaso, 8); i >= 0; --i) {
        char &byte = bytes.data()[Ao_Acaso(acaso, bytes.size())];
        byte = static_cast<char>(byte ^ (1 << Ao_Acaso(acaso, 8)));
    }
    return bytes;
}

inline QByteArray Cortar(QByteArray bytes, std::mt19937 &acaso)
{
    return bytes.first(Ao_Acaso(acaso, bytes.size()));
}
