// What of a contact is compared with others: the folded name with its words in order, numbers without country
// and signs, mails without case.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <QStringList>

struct ChavesDoContacto {
    QString nome;
    QStringList numeros; // each once
    QStringList emails;

    static ChavesDoContacto De(const ColunasDoContacto &colunas);
    static ChavesDoContacto Sem_Nome(const ColunasDoContacto &colunas); // the folding is the dear part

    // "Silva, Ana" is "Ana da Silva".
    static QString Do_Nome(const QString &nome);
    // Empty for a short one, which is nobody's: 112, an extension.
    static QString Do_Numero(const QString &numero);
    static QString Do_Email(const QString &email);
};
