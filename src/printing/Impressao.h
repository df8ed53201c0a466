// The printing of contacts in the main window: its entries for the list, the sheet of the chosen contact and
// the envelope, over the one report control that they share.
#pragma once

#include <QObject>

class Geral;
class Janela;
class ListBox;
class ReportControl;
struct Platform;

class Impressao final : public QObject
{
    Q_OBJECT
public:
    Impressao(Janela &janela, Geral &geral, Platform &platform, ReportControl &CrystalReport1);

private:
    void ImprimirLista_Click();
    void RightClickPrintContacto_Click();
    void ImprimirEnvelope_Click();
    void ImprimirEtiquetas_Click();

    void Mostrar_frmImprimir(bool seleccionado); // whether for the chosen contact alone

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ReportControl &CrystalReport1;
    const ListBox &ListaNomes;
};
