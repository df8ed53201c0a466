#include "cards/DicionarioDeChaves.h"

#include <algorithm>
#include <bit>
#include <QHash>

namespace
{
constexpr std::size_t menos_casas = 64;

// Seeded anew by each process: no file can be made of keys that all want the same house.
std::size_t Resumo_De(const QString &chave) { return qHash(chave, QHashSeed::globalSeed()); }

quint32 Parte(std::size_t resumo) { return static_cast<quint32>(resumo >> 32); }
} // namespace

void DicionarioDeChaves::Contar_Com(std::size_t quantas)
{
    entradas_.reserve(quantas);
    if (2 * quantas > casas_.size()) Crescer(std::bit_ceil(std::max(menos_casas, 2 * quantas)));
}

std::size_t DicionarioDeChaves::Casa_De(const QString &chave, std::size_t resumo) const
{
    const std::size_t mascara = casas_.size() - 1;
    for (std::size_t i = resumo & mascara;; i = (i + 1) & mascara) {
        const Casa &casa = casas_[i];
        if (casa.qual == 0 || (casa.resumo == Parte(resumo) && entradas_[casa.qual - 1].chave == chave))
            return i;
    }
}

void DicionarioDeChaves::Crescer(std::size_t casas)
{
    casas_.assign(casas, {});
    for (std::size_t i = 0; i < entradas_.size(); ++i) {
        const std::size_t resumo = Resumo_De(entradas_[i].chave);
        casas_[Casa_De(entradas_[i].chave, resumo)] = {Parte(resumo), static_cast<quint32>(i + 1)};
    }
}

void DicionarioDeChaves::Apontar(const QString &chave, std::size_t lugar)
{
    if (2 * entradas_.size() >= casas_.size()) Crescer(std::max(menos_casas, 2 * casas_.size()));
    const std::size_t resumo = Resumo_De(chave);
    Casa &casa = casas_[Casa_De(chave, resumo)];
    if (casa.qual != 0) {
        entradas_[casa.qual - 1].outros.push_back(lugar);
        return;
    }
    entradas_.push_back({chave, lugar, {}});
    casa = {Parte(resumo), static_cast<quint32>(entradas_.size())};
}

const DicionarioDeChaves::Entrada *DicionarioDeChaves::Procurar(const QString &chave) const
{
    if (casas_.empty()) return nullptr;
    const Casa &casa = casas_[Casa_De(chave, Resumo_De(chave))];
    return casa.qual == 0 ? nullptr : &entradas_[casa.qual - 1];
}

std::vector<std::size_t> DicionarioDeChaves::Quem(const QString &chave, std::size_t quando_muito) const
{
    const Entrada *entrada = Procurar(chave);
    if (entrada == nullptr || 1 + entrada->outros.size() > quando_muito) return {};
    std::vector<std::size_t> lugares{entrada->primeiro};
    lugares.insert(lugares.end(), entrada->outros.begin(), entrada->outros.end());
    return lugares;
}
