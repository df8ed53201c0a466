// What of a contact is compared with others: the folded name with its words in order, numbers without country
// and signs, mails without case.
#pragma once

#include "interchange/ColunasDoContacto.h"

#include <QStringList>

struct ChavesDoContacto {
    QString nome;
    QStringList numeros; // each once
    QStringList emails;

    static ChavesDoContacto De(const ColunasDoContacto &colunas);

    // "Silva, Ana" is "Ana da Silva".
    static QString Do_Nome(const QString &nome);
    // Empty for a short one, which is nobody's: 112, an extension.
    static QString Do_Numero(const QString &numero);
    static QString Do_Email(const QString &email);
};
