// Asks to which of a contact's two addresses to write.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmEmail.h"

#include <QDialog>

class Geral;
struct Platform;

class frmEmail final : public QDialog, public Ui::frmEmail
{
    Q_OBJECT
public:
    frmEmail(Geral &geral, Platform &platform, QString email1, QString email2,
             QWidget *dono = nullptr);

private:
    void Form_Unload();
    void Option_Click();
    void cmdOk_Click();

    Geral &geral_;
    Platform &platform_;
    QString email1_, email2_;
    PausaDosTemporizadores pausa_;
};
