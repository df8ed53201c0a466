// Prints the envelope of the contact on the card, always by way of a preview. The choice of how the printer
// is fed is the definition's file name, and is kept at the click on it, however the dialog is left.
#pragma once

#include "ui_frmEnvelope.h"

#include <array>
#include <QDialog>

class Geral;
class ReportControl;

class frmEnvelope final : public QDialog, public Ui::frmEnvelope
{
    Q_OBJECT
public:
    frmEnvelope(Geral &geral, ReportControl &CrystalReport1, QWidget *dono = nullptr);

private:
    void Form_Unload();
    void Alimentacao_Click(const QString &escolhida);
    void cmdImprimir_Click();

    void Legendar();
    void Mostrar_Escolhida();
    void Avisar_Da_Amostra();

    struct Alimentacao {
        QPushButton *botao;
        QString nome; // the definition's file name, without its ending
    };

    Geral &geral_;
    ReportControl &CrystalReport1;
    std::array<Alimentacao, 3> alimentacoes_;
};
