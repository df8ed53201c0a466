// The places at which keys stand. Tens of thousands of keys are put in and asked for one by one, and nearly
// each stands at one place: a library's dictionary would ask for memory each time.
#pragma once

#include "cards/ChavesDoContacto.h"

#include <vector>

class LugaresPorChave
{
public:
    void Reservar(std::size_t quantas);

    void Juntar(ChaveCurta chave, std::size_t lugar);

    // Places of that key, those that came last first; no more than so many.
    using Lugares = QVarLengthArray<std::size_t, 8>;
    Lugares De(ChaveCurta chave, qsizetype no_maximo) const;

private:
    struct Entrada {
        ChaveCurta chave;
        quint32 lugar;
        quint32 anterior; // of the same bucket: 1 is the first entry, 0 none
    };

    std::size_t Balde(ChaveCurta chave) const;
    void Alargar(std::size_t quantas);

    std::vector<Entrada> entradas_;
    std::vector<quint32> baldes_; // the last entry of each, as anterior has it
    int bits_ = 0;                // of the number of a bucket
};
