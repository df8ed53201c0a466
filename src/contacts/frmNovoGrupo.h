// Creates a group, shared by everybody or one user's alone.
#pragma once

#include "data/NovaPorSaber.h"
#include "data/Temporizadores.h"
#include "ui_frmNovoGrupo.h"

#include <QDialog>

class Geral;
class ListaContactos;

class frmNovoGrupo final : public QDialog, public Ui::frmNovoGrupo
{
    Q_OBJECT
public:
    frmNovoGrupo(Geral &geral, ListaContactos &lista, QWidget *dono = nullptr);

Q_SIGNALS:
    // The owner has to be made first.
    void CriarUtilizador();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Form_Unload();
    void txtGrupo_Change();
    void cmdOk_Click();

    Geral &geral_;
    ListaContactos &lista_;
    NovaPorSaber novo_;
    PausaDosTemporizadores pausa_;
};
