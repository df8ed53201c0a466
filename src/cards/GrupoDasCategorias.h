// Which one group of the book a contact goes to that says several categories.
#pragma once

#include <QString>
#include <QStringList>

struct GruposDaImportacao {
    QStringList visiveis; // the names of those that the user sees
    QString escolhido;    // in the form, for contacts that say none
    bool criar = false;   // those that are missing
};

// The name of the first category that is a visible group, without case and accents; else, where groups may
// be created, the first that is a person's own; else the chosen one.
QString Grupo_Das_Categorias(const QStringList &categorias, const GruposDaImportacao &grupos);
