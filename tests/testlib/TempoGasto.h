// How much of the processor a piece of work takes, whatever else the machine is doing.
#pragma once

#include <algorithm>
#include <ctime>
#include <limits>

// The least of a few tries, in microseconds of this process; at least one.
template<class Trabalho> double Tempo_Gasto(const Trabalho &trabalho, int vezes = 3)
{
    double menor = std::numeric_limits<double>::max();
    for (int i = 0; i < vezes; ++i) {
        const std::clock_t antes = std::clock();
        trabalho();
        menor = std::min(menor, 1e6 * static_cast<double>(std::clock() - antes) / CLOCKS_PER_SEC);
    }
    return std::max(menor, 1.0);
}
