// The form of one mail account, new or changed, by ModoEmail. Nothing is tested and no server is asked: the
// account proves itself at the first check. When an account is changed its password box holds the scrambled
// text, which confirming scrambles again, so the password is to be typed anew each time.
#pragma once

#include "data/NovaPorSaber.h"
#include "platform/Timer.h"
#include "ui_frmAddEditEmail.h"

#include <QDialog>

class Geral;

class frmAddEditEmail final : public QDialog, public Ui::frmAddEditEmail
{
    Q_OBJECT
public:
    frmAddEditEmail(Geral &geral, QWidget *dono);

protected:
    // Of every control: the form sees each key before the control that has the keyboard.
    bool eventFilter(QObject *controlo, QEvent *event) override;

private:
    void Form_KeyUp();
    void Timer1_Timer();
    void cmdOk_Click();

    void Atribuir_Legendas();
    void Mostrar_Conta();

    Geral &geral_;
    NovaPorSaber nova_;
    Timer Timer1{100, true};
};
