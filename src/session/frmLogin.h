// Asks who is at the keyboard, at the start and, for whom wants it, when the window comes back from the tray.
// Nobody gets past it without a name and password that TblUsers holds: however it is left, without a session the
// process ends.
#pragma once

#include "ui_frmLogin.h"

#include <QDialog>

class Geral;
struct Platform;

class frmLogin final : public QDialog, public Ui::frmLogin
{
    Q_OBJECT
public:
    frmLogin(Geral &geral, Platform &platform);

    // For the reopening from the tray: the session's own name, which can't be changed there.
    void Fixar_Utilizador(const QString &Utilizador);

Q_SIGNALS:
    // A valid pair was given while somebody is logged in already. The session stays with that user.
    void Reaberta(const QString &legenda);

private:
    void Form_Unload();
    void txtUser_Change();
    void cmdOk_Click();
    void cmdCancelar_Click();

    void Entrar();
    void Recusar();
    void reject() override; // Escape and the close box

    Geral &geral_;
    Platform &platform_;
};
