// Renames a group, moves its contacts to another one, or gives it another owner.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmEditGroup.h"

#include <QDialog>

class Geral;
class ListaContactos;
struct Platform;

class frmEditGroup final : public QDialog, public Ui::frmEditGroup
{
    Q_OBJECT
public:
    frmEditGroup(Geral &geral, Platform &platform, ListaContactos &lista, QWidget *dono = nullptr);

Q_SIGNALS:
    // The owner has to be made first.
    void CriarUtilizador();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Form_Unload();
    void ComboGrupos_Click();
    void Opcao_Click();
    void txtRenomearGrupo_Change();
    void cmdOk_Click();

    void Legendar();
    void Mostrar_Dono();
    bool Mover();
    void Mudar_Dono();
    void Renomear();

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    PausaDosTemporizadores pausa_;
};
