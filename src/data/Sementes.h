// The starter set of an empty database, in one language: repetitions, groups, a note and sample contacts.
#pragma once

#include "data/DE.h"

#include <QString>
#include <array>
#include <vector>

// A sample contact. What stands empty here is stored as the empty string.
struct ContactoDeAmostra {
    QString Nome = {};
    QString Telefone1 = {};
    std::array<QString, 3> Telemoveis = {};
    QString Email1 = {};
    QString Website = {};
    QString Morada = {};
    QString Obs = {};
    QString Fotografia = {}; // a file beside the program
};

struct Sementes {
    QString Idioma; // the column of TblIdiomas
    QString Remetente;
    QString Destinatario;
    std::array<QString, 5> Repeticoes;
    std::array<QString, 6> Grupos;
    QString MemoTitulo;
    QString MemoDescricao;
    std::vector<ContactoDeAmostra> Contactos;
};

namespace sementes
{
Sementes PT();
Sementes BR();
Sementes UK();
Sementes FR();

// Whether that sender is still the one of a set, whichever language it was.
bool Remetente_De_Amostra(const QString &remetente);

// Writes the set. Every insert is blind: the tables are taken to be empty, so that the repetitions get the IDs 1
// to 5, the groups 1 to 6, and the samples fall into group 6.
void Semear(DE &de, const Sementes &sementes);
} // namespace sementes
