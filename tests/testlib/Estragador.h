// Harms the bytes of a file as disks, networks and other programs do: bytes that change, pieces that go or
// come twice, an end that is missing, and pieces of the format's own where they do not belong. The same ones
// at each run. MORVEX_ESTRAGOS sets how many files are tried.
#pragma once

#include <QByteArray>
#include <QList>
#include <random>

class Estragador
{
public:
    explicit Estragador(QList<QByteArray> pedacos) : pedacos_(std::move(pedacos)) {}

    QByteArray operator()(QByteArray bytes)
    {
        for (int i = Ao_Acaso(6); i >= 0; --i)
            Estragar(bytes);
        return bytes;
    }

    static int Quantos()
    {
        constexpr int na_suite = 2000;
        const int pedidos = qEnvironmentVariableIntValue("MORVEX_ESTRAGOS");
        return pedidos > 0 ? pedidos : na_suite;
    }

private:
    int Ao_Acaso(qsizetype limite)
    {
        return limite <= 0 ? 0 : static_cast<int>(acaso_() % static_cast<std::uint32_t>(limite));
    }

    void Estragar(QByteArray &bytes)
    {
        const int onde = Ao_Acaso(bytes.size() + 1);
        switch (Ao_Acaso(6)) {
        case 0: // one byte
            if (onde < bytes.size()) bytes[onde] = static_cast<char>(Ao_Acaso(256));
            break;
        case 1: // a piece goes
            bytes.remove(onde, Ao_Acaso(40));
            break;
        case 2: // a piece comes twice
            bytes.insert(onde, bytes.mid(Ao_Acaso(bytes.size() + 1), Ao_Acaso(200)));
            break;
        case 3: // the end is missing
            if (Ao_Acaso(4) == 0) bytes.truncate(onde);
            break;
        default:
            bytes.insert(onde, pedacos_.at(Ao_Acaso(pedacos_.size())));
        }
    }

    QList<QByteArray> pedacos_;
    std::mt19937 acaso_{20240229};
};
