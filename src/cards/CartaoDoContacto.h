// A contact of the book as a card: a new one, or the card that was kept of it, in which no more is changed
// than what has been changed in the book.
#pragma once

#include "cards/ColunasDoContacto.h"
#include "vcard/Card.h"

#include <QByteArray>
#include <QStringList>

struct ContactoParaCartao {
    ColunasDoContacto colunas;
    QString Grupo;         // the name behind IDGrupo
    QString UID;           // whoever calls remembers it; empty for none
    QByteArray Fotografia; // the bytes of the picture that the column names, empty for none
};

class CartaoDoContacto
{
public:
    // The language is that of the mark in Obs; the groups are the names of those that the user sees.
    explicit CartaoDoContacto(QString idioma, CardVersion versao = CardVersion::V30, QStringList grupos = {});

    QByteArray Novo(const ContactoParaCartao &contacto) const;

    // In the kept card's own version, or 3.0 for an older one. Bytes that are no card give a new one.
    QByteArray Remendado(const ContactoParaCartao &contacto, const QByteArray &guardado) const;

private:
    QString idioma_;
    CardVersion versao_;
    QStringList grupos_;
};
