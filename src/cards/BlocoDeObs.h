// The remarks of a contact taken apart: what a person wrote, and below a line that marks it, what came with a
// card or a table and has no column.
#pragma once

#include <QString>
#include <QStringList>

struct BlocoDeObs {
    QString nota;       // lines end in CR LF
    QStringList linhas; // of the block, none of them empty

    // A text may have been marked in any language, and more than once.
    static BlocoDeObs Separar(const QString &obs);

    // Leaves out what is there already.
    void Juntar(const QStringList &novas);

    // What another one says besides: its note goes behind, unless it stands in this one, and its lines are
    // joined. Tells whether anything came.
    bool Acrescentar(const BlocoDeObs &outro);

    // A block without lines is none, and has no mark.
    QString Texto(const QString &idioma) const;
};

// Line breaks as the table has them.
QString Com_CR_LF(const QString &texto);
