// One contact made of two. Unless a person says otherwise nothing that either of them says is lost: what
// finds no column goes to Obs, in a line with its label.
#pragma once

#include "cards/LinhasDoContacto.h"

#include <map>

enum class Fica { Ambos, Primeiro, Segundo };

class JuncaoDeContactos
{
public:
    using Escolhas = std::map<Linha, Fica>; // what is not named: both

    // The labels are written in that language.
    JuncaoDeContactos(ColunasDoContacto primeiro, ColunasDoContacto segundo, QString idioma)
        : primeiro_(std::move(primeiro)), segundo_(std::move(segundo)), idioma_(std::move(idioma))
    {
    }

    // Both say something of it, and not the same: there is something to choose.
    bool Diferem(Linha linha) const;

    // Of the group, which can be only one, both means the first one's.
    ColunasDoContacto Juntos(const Escolhas &escolhas) const;

private:
    ColunasDoContacto primeiro_;
    ColunasDoContacto segundo_;
    QString idioma_;
};
