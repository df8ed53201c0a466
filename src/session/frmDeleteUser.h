// Removes a user and decides what becomes of his or her things. Who is logged in can go only as the last
// user: then everything returns to nobody.
#pragma once

#include "ui_frmDeleteUser.h"

#include <QDialog>

class Geral;
struct Platform;

class frmDeleteUser final : public QDialog, public Ui::frmDeleteUser
{
    Q_OBJECT
public:
    // The window's title names the user of the session. There must be a user to delete.
    frmDeleteUser(Geral &geral, Platform &platform, QWidget &janela);

private:
    void Form_Unload();
    void cmdOk_Click();

    void Eliminar_O_Ultimo(const QString &id);
    void Esquecer_Servidor(const QString &id);
    void Recusar();
    void Eliminar_Outro(const QString &id);
    bool Ha_Tarefas_E_Memos(const QString &id);
    bool Confirma();

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
};
