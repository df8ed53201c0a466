// Copies the database to a folder of the user's choice: a clean copy, checked, and put in the place of the
// earlier one in one step. A file is copied while the connection is closed. The data of a server become such
// a file too, and meanwhile this desk and all others go on.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmBackup.h"

#include <optional>
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
    bool Fecha_Se() const;
    void Copiar();
    void Fazer_Copia_De_Trabalho();
    void Mostrar_Avanco(int percentagem);
    void Mostrar_Falha(const Failure &falha);
    void Apagar_Copia_De_Trabalho();
    QString Copia_De_Trabalho() const;
    QString Alvo() const;

    Geral &geral_;
    Platform &platform_;
    std::optional<PausaDosTemporizadores> pausa_; // none where nothing is closed
};
