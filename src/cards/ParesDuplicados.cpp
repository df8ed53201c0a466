#include "cards/ParesDuplicados.h"

#include <algorithm>
#include <set>

namespace
{
constexpr std::size_t mais_da_mesma_chave = 3;

using Dicionario = QHash<ChaveCurta, std::vector<std::size_t>>;
using Primeiros = QHash<std::pair<ChaveCurta, ChaveCurta>, std::size_t>; // by name, and number or mail

class Procura
{
public:
    // One with the first that has the same, however many have it.
    void Com_O_Primeiro(Primeiros &primeiros, const std::pair<ChaveCurta, ChaveCurta> &chave,
                        std::size_t lugar)
    {
        const auto achado = primeiros.constFind(chave);
        if (achado == primeiros.constEnd())
            primeiros.insert(chave, lugar);
        else
            Par(*achado, lugar, Indicio::NomeEChave);
    }

    void Entre_Si(const Dicionario &dicionario, Indicio indicio)
    {
        for (const std::vector<std::size_t> &lugares : dicionario) {
            if (lugares.size() > mais_da_mesma_chave) continue;
            for (std::size_t i = 0; i < lugares.size(); ++i)
                for (std::size_t j = i + 1; j < lugares.size(); ++j)
                    Par(lugares[i], lugares[j], indicio);
        }
    }

    std::vector<ParDuplicado> Por_Ordem()
    {
        std::sort(pares_.begin(), pares_.end(), [](const ParDuplicado &a, const ParDuplicado &b) {
            return std::tie(a.indicio, a.um, a.outro) < std::tie(b.indicio, b.um, b.outro);
        });
        return std::move(pares_);
    }

private:
    void Par(std::size_t um, std::size_t outro, Indicio indicio)
    {
        if (vistos_.emplace(um, outro).second) pares_.push_back({um, outro, indicio});
    }

    std::vector<ParDuplicado> pares_;
    std::set<std::pair<std::size_t, std::size_t>> vistos_;
};
} // namespace

std::vector<ParDuplicado> ParesDuplicados::Pares() const
{
    Procura procura;
    Primeiros primeiros;
    Dicionario nomes;
    Dicionario outras;
    for (std::size_t lugar = 0; lugar < chaves_.size(); ++lugar) {
        const ChavesDoContacto &chaves = chaves_[lugar];
        if (chaves.nome != 0) nomes[chaves.nome].push_back(lugar);
        const auto por = [&](ChaveCurta chave) {
            outras[chave].push_back(lugar); // a number is no mail
            if (chaves.nome != 0) procura.Com_O_Primeiro(primeiros, {chaves.nome, chave}, lugar);
        };
        std::for_each(chaves.numeros.begin(), chaves.numeros.end(), por);
        std::for_each(chaves.emails.begin(), chaves.emails.end(), por);
    }
    procura.Entre_Si(nomes, Indicio::Nome);
    procura.Entre_Si(outras, Indicio::Chave);
    return procura.Por_Ordem();
}
