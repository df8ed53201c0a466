// The contacts that the session's user sees, read for those that take them out of the book.
#pragma once

#include "interchange/CartaoDoContacto.h"

#include <optional>
#include <QHash>
#include <QList>

class Geral;

struct ContactoDoLivro {
    int ID = 0;
    ContactoParaCartao contacto; // without UID and without the bytes of the picture
};

class ContactosVisiveis
{
public:
    // Reads which groups the user sees.
    explicit ContactosVisiveis(Geral &geral);

    QStringList Grupos() const { return grupos_.values(); }

    // By their names. A group that the user does not see has none.
    QList<int> Todos() const;
    QList<int> Do_Grupo(int IDGrupo) const;

    // Nothing for one that is gone, or stands in a group that the user does not see.
    std::optional<ContactoDoLivro> Ler(int ID) const;

private:
    Geral &geral_;
    QHash<int, QString> grupos_; // names by ID
};
