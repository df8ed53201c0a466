// The two commands of the main window that open the editor of contacts, and all the ways to them: buttons,
// menus, toolbar, double click. The right is asked for at each use.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

class frmAddEdit;
class Geral;
class Janela;
class ListaContactos;
struct Platform;

class EdicaoContacto final : public QObject
{
    Q_OBJECT
public:
    EdicaoContacto(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista);

    // Another desk has changed or deleted those contacts, and perhaps others: an open editor of one of them looks
    // whether that is so, says it, and stays as it is.
    void Contactos_Mudados(const QSet<int> &ids, bool talvez_outros);
    void Contactos_Eliminados(const QSet<int> &ids);

Q_SIGNALS:
    // There is no group that a contact could belong to: the form that makes one is wanted, modally.
    void Sem_Grupos();

private:
    void cmdNovo_Click();
    void cmdEditar_Click();
    void Abrir(const QString &ModoContacto, qint16 titulo);
    bool Edita() const;

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    QPointer<frmAddEdit> aberto_;
};
