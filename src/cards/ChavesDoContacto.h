// What of a contact is compared with others: the folded name in whatever order of its words, numbers without
// country and signs, mails without case.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <QVarLengthArray>

// A key in one number, for tens of thousands are compared and kept. That of a telephone is its digits; those
// of words and mails are digests of 63 bits, of which two in a book full of contacts are the same by chance
// once in ten thousand million books. 0 stands for none.
using ChaveCurta = quint64;

struct ChavesDoContacto {
    ChaveCurta nome = 0;
    QVarLengthArray<ChaveCurta, 6> numeros; // each once
    QVarLengthArray<ChaveCurta, 2> emails;

    static ChavesDoContacto De(const ColunasDoContacto &colunas);
    static ChavesDoContacto Sem_Nome(const ColunasDoContacto &colunas); // the folding is the dear part

    // One for each word that is no particle: "Silva, Ana" has those of "Ana da Silva".
    using Palavras = QVarLengthArray<ChaveCurta, 8>;
    static Palavras Das_Palavras(const QString &nome);
    static ChaveCurta De_Um_Texto(QStringView texto); // as it stands; 0 where it is empty

    // A number's key as a text. Empty for a short one, which is nobody's: 112, an extension.
    static QString Do_Numero(const QString &numero);
    static QString Do_Email(const QString &email);
};
