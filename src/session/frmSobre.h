// The about form: name and version of the program.
#pragma once

#include "ui_frmSobre.h"

#include <QDialog>

class Geral;

class frmSobre final : public QDialog, public Ui::frmSobre
{
    Q_OBJECT
public:
    frmSobre(Geral &geral, QWidget *dono);
};
