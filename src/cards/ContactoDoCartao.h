// What a card becomes in the book: the columns of a contact, and nothing that the card says is lost. What no
// column holds stands in Obs, in a line with its label.
#pragma once

#include "cards/ColunasDoContacto.h"
#include "cards/GrupoDasCategorias.h"

#include <optional>
#include <QByteArray>
#include <QStringList>

class Card;
struct CardContent;

// Which of a card's numbers, mails, addresses (from 0, each among its own) stands in a column.
class OrigemDasColunas
{
public:
    OrigemDasColunas() { lugares_.fill(nenhum); }
    void Por(Coluna coluna, std::size_t lugar)
    {
        lugares_[static_cast<std::size_t>(coluna)] = static_cast<quint16>(lugar);
    }
    std::optional<std::size_t> De(Coluna coluna) const
    {
        const quint16 lugar = lugares_[static_cast<std::size_t>(coluna)];
        return lugar == nenhum ? std::nullopt : std::optional<std::size_t>(lugar);
    }

private:
    static constexpr quint16 nenhum = 0xFFFF; // a card has far fewer properties
    std::array<quint16, ColunasDoContacto::quantas> lugares_;
};

struct ContactoLido {
    ColunasDoContacto colunas; // without IDGrupo
    QString Grupo;             // its name; it may have to be created
    QByteArray Fotografia;     // the bytes behind the column, as they were in the card
    QStringList linhas;        // those of Obs that the card's properties gave, in the language of the reading
    OrigemDasColunas origem;
    QStringList problemas; // what of the card is left to the card itself: labels, to be shown
};

class ContactoDoCartao
{
public:
    // The labels are written in that language ("AlemaoDE").
    explicit ContactoDoCartao(QString idioma, GruposDaImportacao grupos = {});

    // The groups are those that other cards of the file name for this one.
    ContactoLido Ler(const Card &cartao, const QStringList &grupos_do_ficheiro = {}) const;
    // The same for who knows already what the card says.
    ContactoLido Ler(const Card &cartao, const CardContent &conteudo,
                     const QStringList &grupos_do_ficheiro) const;

private:
    QString idioma_;
    GruposDaImportacao grupos_;
};
