// What a card becomes in the book: the columns of a contact, and nothing that the card says is lost. What no
// column holds stands in Obs, in a line with its label.
#pragma once

#include "cards/ColunasDoContacto.h"
#include "cards/GrupoDasCategorias.h"

#include <map>
#include <QByteArray>
#include <QStringList>

class Card;

struct ContactoLido {
    ColunasDoContacto colunas; // without IDGrupo
    QString Grupo;             // its name; it may have to be created
    QByteArray Fotografia;     // the bytes behind the column, as they were in the card
    QStringList linhas;        // those of Obs that the card's properties gave, in the language of the reading
    // Which of the card's numbers, mails, addresses (from 0, each among its own) stands in a column.
    std::map<Coluna, std::size_t> origem;
    QStringList problemas; // what of the card is left to the card itself: labels, to be shown
};

class ContactoDoCartao
{
public:
    // The labels are written in that language ("AlemaoDE").
    explicit ContactoDoCartao(QString idioma, GruposDaImportacao grupos = {});

    // The groups are those that other cards of the file name for this one.
    ContactoLido Ler(const Card &cartao, const QStringList &grupos_do_ficheiro = {}) const;

private:
    QString idioma_;
    GruposDaImportacao grupos_;
};
