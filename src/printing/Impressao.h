// The printing of contacts in the main window: its entries for the list, the sheet of the chosen contact and
// the envelope, over the one report control that they share.
#pragma once

#include <QObject>

class Geral;
class ListBox;
class QWidget;
class ReportControl;
struct Platform;

class Impressao final : public QObject
{
    Q_OBJECT
public:
    // The window must hold ListaNomes and every menu entry and toolbar button that is named below.
    Impressao(QWidget &janela, Geral &geral, Platform &platform, ReportControl &CrystalReport1);

private:
    void ImprimirLista_Click();
    void RightClickPrintContacto_Click();
    void ImprimirEnvelope_Click();

    void Mostrar_frmImprimir(bool seleccionado); // whether for the chosen contact alone

    QWidget &janela_;
    Geral &geral_;
    Platform &platform_;
    ReportControl &CrystalReport1;
    const ListBox &ListaNomes;
};
