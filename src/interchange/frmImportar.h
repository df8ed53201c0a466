// Asks for the file of an earlier release and goes on by its kind: a text file to the choice of a group,
// anything else to the merge of a database.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmImportar.h"

#include <QDialog>

class Failure;
class Geral;
class Intercambio;
struct Platform;

class frmImportar final : public QDialog, public Ui::frmImportar
{
    Q_OBJECT
public:
    frmImportar(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela);

    // That file stands in the form, ready to go on with; an empty path takes an earlier choice back.
    void Escolher(const QString &caminho);

private:
    void Form_Unload();
    void cmdProcurar_Click();
    void cmdSeguinte_Click();

    void Continuar(const QString &caminho);
    bool Recusar(const QString &caminho);
    void Importar_Texto(const QString &caminho);
    void Importar_Base();
    void Falhar(const QString &caminho);

    Geral &geral_;
    Platform &platform_;
    Intercambio &intercambio_;
    QWidget &janela_;
    PausaDosTemporizadores pausa_;
};
