// Prints contacts: all, those of one group or the one on the card, as a telephone list or as full sheets, to
// the printer or to a preview. It draws nothing: it tells the shared report control what to run, and runs it.
#pragma once

#include "ui_frmImprimir.h"

#include <QDialog>

class Geral;
class ListBox;
class ReportControl;

class frmImprimir final : public QDialog, public Ui::frmImprimir
{
    Q_OBJECT
public:
    frmImprimir(Geral &geral, ReportControl &CrystalReport1, const ListBox &ListaNomes,
                QWidget *dono = nullptr);

private:
    void Form_Unload();
    void cmdImprimir_Click();

    void Legendar();
    void Escolher_Definicao();
    void Dar_Rotulos(std::size_t quantos);
    void Escolher_Destino();

    Geral &geral_;
    ReportControl &CrystalReport1;
};
