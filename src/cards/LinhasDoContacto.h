// A contact as a list to be read: each thing that it says with its label.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <QStringList>
#include <vector>

class Geral;

// What a person tells apart of a contact; several columns may hold one of them.
enum class Linha {
    Nome,
    Telefone,
    Fax,
    Telemovel,
    Email,
    Website,
    Morada,
    Aniversario,
    Obs,
    Fotografia,
    Grupo
};

namespace linhas_do_contacto
{
inline constexpr std::array todas{Linha::Nome,  Linha::Telemovel,  Linha::Telefone, Linha::Fax,
                                  Linha::Email, Linha::Website,    Linha::Morada,   Linha::Aniversario,
                                  Linha::Obs,   Linha::Fotografia, Linha::Grupo};

// In the active language, without a colon.
QString Rotulo(Linha linha, Geral &geral);

// The columns that hold it.
std::vector<Coluna> Colunas(Linha linha);

// What the contact says of it: a line each, none of them empty. A birthday has one.
QStringList Valores(Linha linha, const ColunasDoContacto &colunas, Geral &geral);
} // namespace linhas_do_contacto
