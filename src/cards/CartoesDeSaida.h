// The cards of contacts as they leave the book: the kept one where there is one, with its UID and its
// picture.
#pragma once

#include "cards/CartaoDoContacto.h"
#include "data/CartoesGuardados.h"
#include "data/Fotografias.h"

class Geral;
struct ContactoDoLivro;

class CartoesDeSaida
{
public:
    struct Opcoes {
        CardVersion versao = CardVersion::V30;
        bool com_fotografias = true;
        bool com_uid = true;         // a card without it is seen, and not kept
        bool na_do_guardado = false; // a kept card stays in its own version
    };

    // The groups are the names of those that the user sees.
    CartoesDeSaida(Geral &geral, const QStringList &grupos, Opcoes opcoes);

    // A contact that had no UID yet gets one, and the book remembers it. A book that takes no writing can't:
    // the card goes without, for another one every time would make it somebody else each time.
    // Raises Failure where a book that took writing takes it no more.
    QByteArray Escrever(const ContactoDoLivro &contacto);

    // How many pictures are named in the book and are not in a card: the file is gone, is no picture, or is
    // one that no card can carry.
    int Fotografias_De_Fora() const { return fotografias_de_fora_; }

private:
    QString UID(int ID, const std::optional<CartaoGuardado> &guardado);
    QByteArray Fotografia(const QString &coluna);
    QByteArray Cartao(const ContactoParaCartao &contacto, const QByteArray &guardado) const;

    Geral &geral_;
    CartoesGuardados guardados_;
    FotografiasDaBase fotografias_;
    CartaoDoContacto cartao_;
    Opcoes opcoes_;
    bool lembra_; // a new UID: the book takes it
    int fotografias_de_fora_ = 0;
};
