// What a screen reader calls the controls of a form, and the entries of its menus.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QObject;
class QWidget;

namespace nomes
{
struct Nome {
    QString controlo; // its object's name
    QString nome;     // as the screen reader gets it
    QString escrito;  // what stands on the control itself, without mnemonic
    int especie = 0;  // its role
    const QObject *grupo =
        nullptr; // names differ within it: the form, a menu, or a toolbar, which repeats them
};

// Of all controls that a person uses, hidden ones too, and of all entries of menus.
QList<Nome> De(QWidget &form);

// One line for each that has no name, or its object's (which an entry of a menu may share), or one with a
// mnemonic mark, or that of another of the same kind.
QStringList Faltas(const QList<Nome> &nomes);
} // namespace nomes
