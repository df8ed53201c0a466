// The first form of a new installation: a flag picks the language and fills the empty database in it.
// No language is active yet, so its few words are fixed, in two languages at once.
#pragma once

#include "ui_frmSeleccionarIdioma.h"

#include <QDialog>

class Geral;
struct Platform;
struct Sementes;

class frmSeleccionarIdioma final : public QDialog, public Ui::frmSeleccionarIdioma
{
    Q_OBJECT
public:
    frmSeleccionarIdioma(Geral &geral, Platform &platform);

protected:
    void keyPressEvent(QKeyEvent *event) override; // Enter chooses the flag that has the keyboard

private:
    void Form_Unload();
    void cmdPT_Click();
    void cmdBR_Click();
    void cmdUK_Click();
    void cmdFR_Click();
    void cmdIndisponivel_Click(); // cmdDE, cmdES and cmdIT

    // Fills the database and closes the form. A failure ends the process, after the error box.
    void Semear(const Sementes &sementes);

    Geral &geral_;
    Platform &platform_;
};
