// What a person reads of synchronising, in the active language.
#pragma once

#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/ResultadoDaSincronizacao.h"

class Geral;

namespace palavras_da_sincronizacao
{
QString Do_Erro(Geral &geral, const RemoteError &erro);
// One line or two: how a run came out.
QString Do_Resultado(Geral &geral, const ResultadoDaSincronizacao &resultado);
QString Da_Ocorrencia(Geral &geral, const Ocorrencia &ocorrencia);
} // namespace palavras_da_sincronizacao
