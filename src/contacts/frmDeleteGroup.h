// Deletes a group, with its contacts or after moving them to another one. The last group that the user sees
// stays.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmDeleteGroup.h"

#include <QDialog>

class Geral;
class ListaContactos;
struct Platform;

class frmDeleteGroup final : public QDialog, public Ui::frmDeleteGroup
{
    Q_OBJECT
public:
    frmDeleteGroup(Geral &geral, Platform &platform, ListaContactos &lista, QWidget *dono = nullptr);

private:
    void Form_Unload();
    void OptionMover_Click();
    void cmdOk_Click();

    void Eliminar();
    bool Tratar_Dos_Contactos(const QString &grupo);
    void Dizer(qint16 texto);

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    PausaDosTemporizadores pausa_;
};
