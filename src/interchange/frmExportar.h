// Writes the contact reports to a file for a spreadsheet, a word processor or an editor. The file is asked
// for by the report control; what goes wrong there leaves the dialog open without a word.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmExportar.h"

#include <QDialog>

class Geral;
class ListBox;
class ReportControl;

class frmExportar final : public QDialog, public Ui::frmExportar
{
    Q_OBJECT
public:
    frmExportar(Geral &geral, ReportControl &CrystalReport1, const ListBox &ListaNomes,
                QWidget *dono = nullptr);

private:
    void Form_Unload();
    void cmdExportar_Click();

    void Legendar();
    void Oferecer_Formatos();

    Geral &geral_;
    ReportControl &CrystalReport1;
    PausaDosTemporizadores pausa_;
};
