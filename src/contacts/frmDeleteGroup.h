// Deletes a group, with its contacts or after moving them to another one. The last group that the user sees
// stays.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmDeleteGroup.h"

#include <QDialog>

class DesfazerEliminacao;
class Geral;
class ListaContactos;
struct Platform;

class frmDeleteGroup final : public QDialog, public Ui::frmDeleteGroup
{
    Q_OBJECT
public:
    frmDeleteGroup(Geral &geral, Platform &platform, ListaContactos &lista, DesfazerEliminacao &desfazer,
                   QWidget *dono = nullptr);

private:
    void Form_Unload();
    void OptionMover_Click();
    void cmdOk_Click();

    void Eliminar();
    void Eliminar_Com_Os_Contactos(const QString &grupo, const QString &destino);
    void Dizer(qint16 texto);

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    DesfazerEliminacao &desfazer_;
    PausaDosTemporizadores pausa_;
};
