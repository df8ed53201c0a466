// Which contacts of one book may be the same person, two and two. Through dictionaries, never pair by pair: a
// contact has at most a few pairs for each of its keys.
#pragma once

#include "cards/ChavesDoContacto.h"

#include <QHash>
#include <vector>

enum class Indicio {
    NomeEChave, // the same name, and a number or mail in common
    Nome,
    Chave,
};

struct ParDuplicado {
    std::size_t um; // places in the order of Juntar, this one before the other
    std::size_t outro;
    Indicio indicio;

    bool operator==(const ParDuplicado &) const = default;
};

class ParesDuplicados
{
public:
    void Juntar(const ColunasDoContacto &colunas) { chaves_.push_back(ChavesDoContacto::De(colunas)); }

    // Those of the same name and key first, each with the first contact that has both. A name, number or mail
    // of more than three contacts proves nothing alone.
    std::vector<ParDuplicado> Pares() const;

private:
    std::vector<ChavesDoContacto> chaves_;
};
