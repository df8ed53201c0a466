// One row that two people have changed since both knew it alike. What only one of them changed joins without
// a question; what both changed, and not to the same, is disputed. Values are compared letter by letter.
#pragma once

#include <cstddef>
#include <QStringList>
#include <set>
#include <vector>

class EncontroDeLinhas
{
public:
    // The columns that say one thing together, as day, month and year do, by their places in a row. Each
    // column belongs to one field.
    using Campo = std::vector<qsizetype>;
    using Campos = std::vector<Campo>;
    using Lugares = std::set<std::size_t>; // of fields, as Campos has them

    // As both knew the row, and what the editor made of that: it may not be able to show all values just as
    // they stand, and what nobody has touched is no change.
    EncontroDeLinhas(Campos campos, QStringList antes, QStringList mostrada);

    bool Mudou_La(const QStringList &la) const { return la != antes_; }
    bool Mudou_Aqui(const QStringList &aqui) const { return aqui != mostrada_; }

    Lugares Disputados(const QStringList &aqui, const QStringList &la) const;

    // The row with the changes of both. Of a disputed field ours, or theirs for those that are named.
    QStringList Juntas(const QStringList &aqui, const QStringList &la, const Lugares &deles = {}) const;

    const Campos &Os_Campos() const { return campos_; }

private:
    static bool Diferem(const Campo &campo, const QStringList &uma, const QStringList &outra);
    bool Disputam(const Campo &campo, const QStringList &aqui, const QStringList &la) const;

    Campos campos_;
    QStringList antes_;
    QStringList mostrada_;
};
