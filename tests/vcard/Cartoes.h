// What the tests of cards share: a card of a few lines, and what was read of it.
#pragma once

#include "vcard/CardContent.h"
#include "vcard/CardReader.h"

#include <QByteArray>

inline QByteArray Cartao(const QByteArray &linhas, const QByteArray &versao = "3.0")
{
    return "BEGIN:VCARD\r\nVERSION:" + versao + "\r\n" + linhas + "END:VCARD\r\n";
}

// The content of the one card of those lines.
inline CardContent Conteudo(const QByteArray &linhas, const QByteArray &versao = "3.0")
{
    const CardFile ficheiro = CardReader().read(Cartao(linhas, versao));
    if (ficheiro.cards.size() != 1) qFatal("%zu cards and not one", ficheiro.cards.size());
    return contentOf(ficheiro.cards.front());
}

inline QStringList Valores(const std::vector<CardEntry> &entradas)
{
    QStringList valores;
    for (const CardEntry &entrada : entradas)
        valores << entrada.value;
    return valores;
}

// The names shown for the cards of a file.
inline QStringList Nomes(const CardFile &ficheiro)
{
    QStringList nomes;
    for (const Card &cartao : ficheiro.cards)
        nomes << shownName(contentOf(cartao));
    return nomes;
}
