// Copies the database to a folder of the user's choice: a clean copy made while the connection is closed,
// checked, and put in the place of the earlier one in one step.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmBackup.h"

#include <QDialog>

class Failure;
class Geral;
struct Platform;

class frmBackup final : public QDialog, public Ui::frmBackup
{
    Q_OBJECT
public:
    frmBackup(Geral &geral, Platform &platform, QWidget *dono = nullptr);

private:
    void Form_Unload();
    void cmdProcurar_Click();
    void cmdIniciar_Click();

    QString GetBrowseDirectory();
    void Copiar();
    void Mostrar_Falha(const Failure &falha);
    void Apagar_Copia_De_Trabalho();
    QString Copia_De_Trabalho() const;
    QString Alvo() const;

    Geral &geral_;
    Platform &platform_;
    PausaDosTemporizadores pausa_;
};
