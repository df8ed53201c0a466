// What the editor of contacts writes of a row, and what it asks where another desk has changed the same.
#pragma once

#include "contacts/frmConflito.h"
#include "data/LinhaEditada.h"

#include <array>

namespace disputa_do_contacto
{
// The columns in the order of cmdUpdateNome.
using Valores = std::array<QString, 17>;
inline constexpr std::size_t coluna_fotografia = 15;
inline constexpr std::size_t coluna_grupo = 16;

LinhaEditada::Forma Forma();

QStringList Em_Lista(const Valores &valores);
Valores Da_Lista(const QStringList &lista);

// What is disputed as a person reads it, by the captions of the editor. The pictures come from there.
CamposDisputados Campos(const LinhaEditada::Disputa &disputa, Geral &geral,
                        const std::function<Picture(const QString &)> &imagem);
} // namespace disputa_do_contacto
