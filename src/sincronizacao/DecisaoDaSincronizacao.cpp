#include "sincronizacao/DecisaoDaSincronizacao.h"

#include <array>

namespace
{
using enum Accao;

// By what happened here, then by what happened there; in the order of Lado.
constexpr std::array tabela{
    std::array{Nada, Receber, ApagarAqui},
    std::array{Enviar, Juntar, EnviarNovo},
    std::array{ApagarLa, ReceberNovo, Esquecer},
};

Accao Com_Cautela(Accao accao)
{
    if (accao == ApagarAqui) return EnviarNovo;
    return accao == ApagarLa ? ReceberNovo : accao;
}

bool Permitida(Accao accao, const Circunstancias &circunstancias)
{
    switch (accao) {
    case Receber:
    case Juntar:
        return circunstancias.editar;
    case ReceberNovo:
        return circunstancias.adicionar;
    case ApagarAqui:
        return circunstancias.eliminar;
    default:
        return true;
    }
}
} // namespace

Accao Decidir(Lado aqui, Lado la, const Circunstancias &circunstancias)
{
    Accao accao = tabela.at(static_cast<std::size_t>(aqui)).at(static_cast<std::size_t>(la));
    if (circunstancias.cautela) accao = Com_Cautela(accao);
    return Permitida(accao, circunstancias) ? accao : Reter;
}

bool Sao_Demasiadas(qsizetype eliminadas, qsizetype de_quantas)
{
    constexpr qsizetype sem_perguntar = 10;
    return eliminadas > sem_perguntar && 2 * eliminadas > de_quantas;
}
