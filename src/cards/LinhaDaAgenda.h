// A contact's row of the book, as far as cards and tables know it: those seventeen columns.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <bitset>
#include <optional>

class DE;
class Row;

struct LinhaDaAgenda {
    ColunasDoContacto colunas;
    std::bitset<ColunasDoContacto::quantas> nulas; // empty, and Null in the table
};

// Where these columns stand in the rows of one question, which is asked for once and not at each row.
class LugaresDaAgenda
{
public:
    explicit LugaresDaAgenda(const Row &linha);

    qint64 ID(const Row &linha) const;
    ColunasDoContacto Colunas(const Row &linha) const;
    LinhaDaAgenda Linha(const Row &linha) const;

private:
    int do_ID_;
    std::array<int, ColunasDoContacto::quantas> lugares_{};
};

namespace linha_da_agenda
{
// In the place of what the contact of that ID has in these columns. A Null that was there and gets no value
// stays one. Raises Failure.
void Escrever(DE &de, const QString &ID, const LinhaDaAgenda &linha);
} // namespace linha_da_agenda
