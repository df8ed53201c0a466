// Changes a user. Every confirmation writes every field, the password too: what its boxes hold is scrambled
// once more even when nobody touched them.
#pragma once

#include "ui_frmEditUser.h"

#include <QDialog>

class Geral;
struct Platform;

class frmEditUser final : public QDialog, public Ui::frmEditUser
{
    Q_OBJECT
public:
    // There must be a user to edit.
    frmEditUser(Geral &geral, Platform &platform, QWidget *dono = nullptr);

private:
    void Form_Unload();
    void ComboUsers_Click();
    void txtUser_Change();
    void cmdOk_Click();

    void Fixar_Direitos_Do_Unico();
    void Gravar();

    Geral &geral_;
    Platform &platform_;
};
