// A foreign file of contacts, cards or a table, as contacts that could come into the book. It is read once,
// and nothing of it is written.
#pragma once

#include "cards/ContactoDoCartao.h"
#include "cards/TabelaEscolhida.h"
#include "vcard/CardContent.h"
#include "vcard/CardReader.h"

#include <deque>
#include <memory>
#include <optional>
#include <QHash>
#include <QSet>
#include <vector>

// What of a file could not come as it is, with its line.
struct FaltaDaFonte {
    enum class Que {
        ValorGrande, // left out
        PropriedadesDemais,
        SemFim,
        Vazio, // no contact
        ForaDeCartao,
        NumeroEstragado, // by a spreadsheet
        Fotografia,      // one that cannot be shown, or a further one
    };
    qsizetype linha = 0; // from 1; in a table the row
    Que que = Que::Vazio;
    QString valor; // the spoilt number

    bool operator==(const FaltaDaFonte &) const = default;
};

struct ContactoDaFonte {
    ContactoLido lido; // the bytes of its picture stay with the card
    QString UID;
    QByteArray cartao; // as it stood in the file, where it was one
    qsizetype linha = 0;
};

class FonteDeContactos
{
public:
    virtual ~FonteDeContactos() = default;
    // Some more of what has to be read of the file before anything else of it can be asked: a short while's
    // work. False once there is no more of it. What is wrong with the file as a whole goes to the faults.
    virtual bool Preparar(std::vector<FaltaDaFonte> & /*faltas*/) { return false; }
    virtual int Preparado() const { return 100; } // percent
    virtual std::size_t Quantos() const = 0;
    // From 0, each once. Nothing where a card stands for no person, or a row or card holds none; what is
    // wrong goes to the faults.
    virtual std::optional<ContactoDaFonte> Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas) = 0;
};

class FonteDeCartoes final : public FonteDeContactos
{
public:
    // The encoding is that of what does not say its own; empty for none chosen.
    FonteDeCartoes(const QByteArray &bytes, const QByteArray &codificacao, const QString &idioma,
                   GruposDaImportacao grupos);

    bool Preparar(std::vector<FaltaDaFonte> &faltas) override;
    int Preparado() const override { return leitura_ ? leitura_->percent() : 100; }
    std::size_t Quantos() const override { return lidos_.size(); }
    std::optional<ContactoDaFonte> Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas) override;

private:
    struct Lido {
        ContactoDaFonte contacto;
        bool e_grupo = false; // no person
    };

    void Tomar(const Card &cartao);
    void Juntar_Os_Grupos(ContactoDaFonte &contacto) const;
    QByteArray Guardavel(const QByteArray &cartao) const;

    QByteArray codificacao_;
    std::optional<CardReading> leitura_; // nothing once all is read
    std::vector<Card> por_tomar_;        // the last first
    ContactoDoCartao regras_;
    std::deque<Lido> lidos_;
    QSet<qsizetype> vazios_;                         // lines of cards of which the file's faults tell that
    std::vector<CardContent> grupos_;                // of the file
    QHash<QString, QStringList> grupos_do_ficheiro_; // by the UID of their members
};

class FonteDeTabela final : public FonteDeContactos
{
public:
    FonteDeTabela(TabelaEscolhida tabela, GruposDaImportacao grupos);

    std::size_t Quantos() const override { return linhas_.Quantos(); }
    std::optional<ContactoDaFonte> Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas) override;

private:
    qsizetype primeira_; // the row of the first contact, from 1
    ContactosDaTabela linhas_;
};

// The bytes of the picture of that name ("bd:…") in a card; empty where it has none.
QByteArray Fotografia_Do_Cartao(const QByteArray &cartao, const QString &nome);
