// What kind a number of a card is, and where such a number goes.
#pragma once

#include "cards/ColunasDoContacto.h"
#include "cards/RotulosDoCartao.h"

#include <span>

struct CardEntry;

enum class EspecieDeNumero { Telefone, Telemovel, Fax, Pager, OutroTelefone };

// The number is the entry's value as it is read.
EspecieDeNumero Especie_Do_Numero(const CardEntry &entrada, const QString &numero);

// A Portuguese mobile number: +351 9…, or nine digits from 9.
bool E_Telemovel_Portugues(const QString &numero);

// In the order in which they are filled; a pager and the like have none.
std::span<const Coluna> Colunas_Da_Especie(EspecieDeNumero especie);
Rotulo Rotulo_Da_Especie(EspecieDeNumero especie);

// No more than that many characters, and never half of one.
QString Cortado(const QString &texto, qsizetype maior);
