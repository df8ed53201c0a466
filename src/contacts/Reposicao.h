// Putting back what a deletion took: the rows as they were, with their IDs, or nothing at all.
#pragma once

#include "data/LinhaInteira.h"

#include <exception>
#include <map>
#include <optional>
#include <QString>

class DE;
class Geral;

// What a deletion takes away, read before it does.
struct Eliminacao {
    QString IdUtilizador;              // whose deletion it is
    std::optional<LinhaInteira> grupo; // the group that goes; of a contact alone, the one in which it lies
    LinhasInteiras contactos;
    std::map<QString, LinhaInteira> cartoes; // kept of those that go, by their IDs; pictures go nowhere
    QString destino; // the group into which the contacts are moved; empty: they go too
    bool vai_o_grupo = false;
};

// The contact of that ID; the group of that ID with its contacts. IDs in digits.
Eliminacao Retrato_Do_Contacto(Geral &geral, const QString &ID);
Eliminacao Retrato_Do_Grupo(Geral &geral, const QString &ID, const QString &destino);

// Where what was put back is now.
struct Reposto {
    QString ID; // of the contact; of a group's contacts none
    QString IDGrupo;
    bool noutro_grupo = false; // the contact's own is not in view any more: the names of both
    QString grupo_em_falta;
    QString outro_grupo;
};

// The ID belongs to another row now.
struct NumeroOcupado : std::exception {
};
// The user sees no group any more that a contact could come back into.
struct SemGrupo : std::exception {
};

enum class Numero {
    OMesmo, // or NumeroOcupado
    NovoOndeOcupado,
};

// All of it or nothing. A row that somebody else has put back already stays as it is. Raises Failure where
// the database refuses, and the two above.
Reposto Repor(Geral &geral, const Eliminacao &eliminacao, Numero numero);
