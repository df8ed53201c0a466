// Undoing deletions of contacts and groups, the last one first, until the program ends: the menu entry and
// its keys. Whoever deletes does so through here, for what nobody saw before it went nobody can bring back.
#pragma once

#include "contacts/LugarNaLista.h"
#include "contacts/Reposicao.h"
#include "platform/Translations.h"

#include <functional>
#include <list>
#include <QObject>

class Janela;
class ListaContactos;
struct Platform;

class DesfazerEliminacao final : public QObject
{
    Q_OBJECT
public:
    DesfazerEliminacao(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista);

    // Run a deletion as one, all of it or nothing, and remember what it took: the contact of that ID, or the
    // group with its contacts. Where these are moved and not deleted the destination is their new group;
    // otherwise it is empty. The deletion must ask nobody anything. Raise what it raises.
    void Eliminar_Contacto(const QString &ID, const std::function<void()> &eliminar);
    void Eliminar_Grupo(const QString &ID, const QString &destino, const std::function<void()> &eliminar);
    // The same for a contact that becomes part of another one: what is written into that one is undone with
    // the deletion.
    void Juntar_Contactos(const QString &IDQueFica, const QString &IDQueVai,
                          const std::function<void()> &juntar);

Q_SIGNALS:
    // Something that can be brought back was deleted.
    void Eliminado();

private:
    // One deletion, and the two writes of it that a lost server may leave in doubt.
    struct Feita {
        explicit Feita(DE &de) : eliminar(de), repor(de) {}
        bool Sem_Nada() const
        {
            return eliminacao.vai_o_grupo ? !eliminacao.grupo : eliminacao.contactos.empty();
        }

        Eliminacao eliminacao;
        FeitoPorSaber eliminar;
        Tentativa repor;
    };
    using Pilha = std::list<Feita>;

    void DesfazerEliminar_Click();

    void Guardar(const std::function<Eliminacao()> &retrato, const std::function<void()> &eliminar);
    void Fazer(const std::function<void(Eliminacao &)> &trabalho);
    Pilha::iterator Ultima();
    void Permitir();
    bool Pode_Desfazer(const Eliminacao &eliminacao);
    std::optional<Reposto> Trazer(Feita &feita);
    void Mostrar(const Reposto &reposto);
    void Avisar(const Reposto &reposto);
    int Dizer(const Translations &palavras, int flags, const QStringList &nomes = {});

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    LugarNaLista lugar_;
    Pilha pilha_;
};
