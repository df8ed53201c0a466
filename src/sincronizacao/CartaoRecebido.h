// A card that came from the server, on its way into the book: as a new contact, into the contact that it
// belongs to, or into one that turns out to be the same person's.
#pragma once

#include "cards/FonteDeContactos.h"
#include "cards/RegraDosDuplicados.h"
#include "sincronizacao/CorridaEmCurso.h"
#include "sincronizacao/JuncaoDeTres.h"

// The one person of a card. Nothing for a card of a group of people, and for what is no card.
std::optional<ContactoDaFonte> Pessoa_Do_Cartao(const QByteArray &cartao, const QString &idioma);

class RecepcaoDeCartoes
{
public:
    explicit RecepcaoDeCartoes(CorridaEmCurso &corrida);

    // The card that stands under that name, in that state. Within CorridaEmCurso::Escrever, with all that it
    // remembers.
    void Tratar(const QString &href, const QByteArray &etag, const QByteArray &texto);

private:
    struct Chegada {
        QString href;
        QByteArray etag;
        QByteArray texto;
        QByteArray resumo;
        ContactoDaFonte pessoa;
    };

    void Sem_O_Seu(const Chegada &chegada, const Par *par);
    std::optional<GrupoLocal::Linha> A_Vista(int ID) const;
    void Ignorar(const Chegada &chegada, const Par *par);
    bool Nada_De_Novo(const Chegada &chegada, const Par *par);
    void Novo(const Chegada &chegada, bool estava_eliminado);
    void Existente(const Chegada &chegada, int ID, const GrupoLocal::Linha &linha, const Par *par);
    void Reter(const Chegada &chegada, const Par *par);
    QString UID_De(const Chegada &chegada, int ID) const;
    void Apontar_Conflitos(int ID, const QString &nome, const std::vector<ConflitoDeColuna> &conflitos);
    int Emparelhar(const Chegada &chegada, std::optional<Par> &antigo);
    int Pela_Regra(const Chegada &chegada);
    ColunasDoContacto Como_Era_La(const Par &par) const;

    CorridaEmCurso &c_;
    std::map<QString, int> por_uid_;
    std::optional<RegraDosDuplicados> regra_; // over those that no card goes with
    std::vector<int> lugares_;                // their IDs, in its order
};
