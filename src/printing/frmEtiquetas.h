// Prints the addresses of many contacts on sheets of labels: of all, of a group or of the one on the card, to
// the printer or to a preview. A contact without an address is left out, and the form says how many those
// are.
#pragma once

#include "data/Temporizadores.h"
#include "ui_frmEtiquetas.h"

#include <QDialog>

class Geral;
class ListBox;
class ReportControl;

class frmEtiquetas final : public QDialog, public Ui::frmEtiquetas
{
    Q_OBJECT
public:
    frmEtiquetas(Geral &geral, ReportControl &CrystalReport1, const ListBox &ListaNomes,
                 QWidget *dono = nullptr);

private:
    void Form_Unload();
    void ComboFormato_Click();
    void cmdImprimir_Click();

    void Legendar();
    void Oferecer_Formatos();
    void Mostrar_Os_Que_Ficam_De_Fora();
    qsizetype Sem_Morada();
    QString Remetente() const;

    Geral &geral_;
    ReportControl &CrystalReport1;
    PausaDosTemporizadores pausa_;
};
