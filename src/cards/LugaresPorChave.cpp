#include "cards/LugaresPorChave.h"

#include <algorithm>
#include <bit>
#include <utility>

void LugaresPorChave::Reservar(std::size_t quantas)
{
    entradas_.reserve(quantas);
    if (quantas > baldes_.size()) Alargar(quantas);
}

// The keys of telephones follow one another: the product scatters them.
std::size_t LugaresPorChave::Balde(ChaveCurta chave) const
{
    constexpr int todos = 64;
    return static_cast<std::size_t>(chave * 0x9E3779B97F4A7C15 >> (todos - bits_));
}

// No fewer buckets than keys.
void LugaresPorChave::Alargar(std::size_t quantas)
{
    constexpr std::size_t menos = 16;
    baldes_.assign(std::bit_ceil(std::max(quantas, menos)), 0);
    bits_ = std::countr_zero(baldes_.size());
    for (std::size_t i = 0; i < entradas_.size(); ++i)
        entradas_[i].anterior =
            std::exchange(baldes_[Balde(entradas_[i].chave)], static_cast<quint32>(i + 1));
}

void LugaresPorChave::Juntar(ChaveCurta chave, std::size_t lugar)
{
    if (entradas_.size() >= baldes_.size()) Alargar(2 * entradas_.size());
    quint32 &ultima = baldes_[Balde(chave)];
    entradas_.push_back({chave, static_cast<quint32>(lugar), ultima});
    ultima = static_cast<quint32>(entradas_.size());
}

LugaresPorChave::Lugares LugaresPorChave::De(ChaveCurta chave, qsizetype no_maximo) const
{
    Lugares lugares;
    if (chave == 0 || baldes_.empty()) return lugares;
    for (quint32 i = baldes_[Balde(chave)]; i != 0 && lugares.size() < no_maximo;) {
        const Entrada &entrada = entradas_[i - 1];
        if (entrada.chave == chave) lugares.append(entrada.lugar);
        i = entrada.anterior;
    }
    return lugares;
}
