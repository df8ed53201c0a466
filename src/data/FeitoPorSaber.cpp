#include "data/FeitoPorSaber.h"

#include "data/DE.h"

bool FeitoPorSaber::Em_Duvida() const
{
    const Fate destino = de_.Destino_Da_Escrita(perdida_);
    return destino == Fate::Arrived || destino == Fate::Unknown;
}

bool FeitoPorSaber::Nao_Chegou() const
{
    return de_.Destino_Da_Escrita(perdida_) == Fate::NotArrived;
}

// While nobody knows, the server is away, and the work is refused at once.
void FeitoPorSaber::Correr(const std::function<void()> &trabalho)
{
    if (de_.Destino_Da_Escrita(perdida_) == Fate::Arrived) return;
    const int antes = de_.Escritas_Perdidas();
    try {
        de_.Tudo_Ou_Nada(trabalho);
    } catch (...) {
        if (de_.Escritas_Perdidas() != antes) perdida_ = de_.Escritas_Perdidas();
        throw;
    }
}
