#include "data/Traduzir.h"

#include "data/Geral.h"
#include "data/Idiomas.h"

QString Traduzir(const Translations &palavras, const Geral &geral)
{
    return idiomas::Procurar(geral.IdiomaActual) == nullptr ? QString()
                                                            : translated(palavras, geral.IdiomaActual);
}
