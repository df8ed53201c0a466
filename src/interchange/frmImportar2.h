// Puts the records of a text file into one group.
#pragma once

#include "ui_frmImportar2.h"

#include <QDialog>

class Geral;
class Intercambio;
class LinhasJaVindas;
struct Platform;

class frmImportar2 final : public QDialog, public Ui::frmImportar2
{
    Q_OBJECT
public:
    frmImportar2(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela);

    // Stops the timers, sets the texts, and fills the groups anew, of which the first is chosen. Raises
    // Failure where there is none.
    void Form_Load();

private:
    void Form_Unload();
    void ComboGrupos_Click();
    void cmdSeguinte_Click();

    bool Importar();
    void Guardar(LinhasJaVindas &vindas, const QString &registo);

    Geral &geral_;
    Platform &platform_;
    Intercambio &intercambio_;
    QWidget &janela_;
};
