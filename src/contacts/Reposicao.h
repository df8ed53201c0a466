// Putting back what a deletion took: the rows as they were, with their IDs, or nothing at all.
#pragma once

#include "data/FeitoPorSaber.h"
#include "data/LinhaInteira.h"

#include <exception>
#include <map>
#include <optional>
#include <QString>

class DE;
class Geral;

// A contact that took in the one that went: its row before and after.
struct Juncao {
    LinhaInteira antes;
    LinhaInteira depois;
    bool veio_o_cartao = false; // the kept card is the other's
};

// What a deletion takes away, read before it does.
struct Eliminacao {
    QString IdUtilizador;              // whose deletion it is
    std::optional<LinhaInteira> grupo; // the group that goes; of a contact alone, the one in which it lies
    LinhasInteiras contactos;
    std::map<QString, LinhaInteira> cartoes; // kept of those that go, by their IDs; pictures go nowhere
    QString destino; // the group into which the contacts are moved; empty: they go too
    bool vai_o_grupo = false;
    std::optional<Juncao> juncao;
};

// The contact of that ID; the group of that ID with its contacts. IDs in digits.
Eliminacao Retrato_Do_Contacto(Geral &geral, const QString &ID);
Eliminacao Retrato_Do_Grupo(Geral &geral, const QString &ID, const QString &destino);

// The contact of that ID before another one is put into it, and after. Raises Failure where it is not there.
Juncao Antes_De_Juntar(DE &de, const QString &ID);
void Depois_De_Juntar(DE &de, Juncao &juncao);

// Where what was put back is now.
struct Reposto {
    QString ID; // of the contact; of a group's contacts none
    QString IDGrupo;
    bool noutro_grupo = false; // the contact's own is not in view any more: the names of both
    QString grupo_em_falta;
    QString outro_grupo;
    bool ficou_junto = false; // the contact that took it in was changed since, and stays as it is
};

// The putting back of one deletion, over which a server may go away: what was done is not done again by another try.
struct Tentativa {
    explicit Tentativa(DE &de) : escrita(de) {}

    FeitoPorSaber escrita;
    Reposto reposto; // by the last one
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
Reposto Repor(Geral &geral, const Eliminacao &eliminacao, Numero numero, Tentativa &tentativa);
