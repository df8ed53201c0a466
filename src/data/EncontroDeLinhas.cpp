#include "data/EncontroDeLinhas.h"

#include <algorithm>

EncontroDeLinhas::EncontroDeLinhas(Campos campos, QStringList antes, QStringList mostrada)
    : campos_(std::move(campos)), antes_(std::move(antes)), mostrada_(std::move(mostrada))
{
}

bool EncontroDeLinhas::Diferem(const Campo &campo, const QStringList &uma, const QStringList &outra)
{
    return std::any_of(campo.begin(), campo.end(), [&](qsizetype c) { return uma[c] != outra[c]; });
}

bool EncontroDeLinhas::Disputam(const Campo &campo, const QStringList &aqui, const QStringList &la) const
{
    return Diferem(campo, aqui, mostrada_) && Diferem(campo, la, antes_) && Diferem(campo, aqui, la);
}

EncontroDeLinhas::Lugares EncontroDeLinhas::Disputados(const QStringList &aqui, const QStringList &la) const
{
    Lugares lugares;
    for (std::size_t i = 0; i < campos_.size(); ++i)
        if (Disputam(campos_[i], aqui, la)) lugares.insert(i);
    return lugares;
}

QStringList EncontroDeLinhas::Juntas(const QStringList &aqui, const QStringList &la,
                                     const Lugares &deles) const
{
    QStringList juntas = la;
    for (std::size_t i = 0; i < campos_.size(); ++i) {
        const Campo &campo = campos_[i];
        if (!Diferem(campo, aqui, mostrada_)) continue;
        if (deles.contains(i) && Disputam(campo, aqui, la)) continue;
        for (const qsizetype coluna : campo)
            juntas[coluna] = aqui[coluna];
    }
    return juntas;
}
