#include "printing/Impressao.h"

#include "controls/DisabledWindow.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Platform.h"
#include "printing/frmEnvelope.h"
#include "printing/frmEtiquetas.h"
#include "printing/frmImprimir.h"

#include <QAction>

using namespace Qt::StringLiterals;

Impressao::Impressao(Janela &janela, Geral &geral, Platform &platform, ReportControl &relatorio)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      CrystalReport1(relatorio),
      ListaNomes(*janela.ListaNomes)
{
    for (QAction *comando : {janela.ImprimirLista, janela.imprimir})
        connect(comando, &QAction::triggered, this, &Impressao::ImprimirLista_Click);
    connect(janela.RightClickPrintContacto, &QAction::triggered, this,
            &Impressao::RightClickPrintContacto_Click);
    for (QAction *comando : {janela.ImprimirEnvelope, janela.imprimir_envelope, janela.RightClickEnvelope})
        connect(comando, &QAction::triggered, this, &Impressao::ImprimirEnvelope_Click);
    connect(janela.ImprimirEtiquetas, &QAction::triggered, this, &Impressao::ImprimirEtiquetas_Click);
}

void Impressao::ImprimirLista_Click() { Mostrar_frmImprimir(false); }

void Impressao::RightClickPrintContacto_Click() { Mostrar_frmImprimir(true); }

// A direct print runs once its dialog has closed, and finds the window free by then.
void Impressao::Mostrar_frmImprimir(bool seleccionado)
{
    const DisabledWindow desactivada(janela_);
    frmImprimir form(geral_, CrystalReport1, ListaNomes, &janela_);
    connect(&form, &QDialog::finished, &janela_, [this] { janela_.setEnabled(true); });
    if (seleccionado) form.opcoes->OptionSelecionado->setChecked(true);
    form.exec();
}

void Impressao::ImprimirEnvelope_Click()
{
    if (ListaNomes.ListIndex() < 0) {
        const QString aviso = geral_.Ler_Idioma(165) + u"\r\n"_s + geral_.Ler_Idioma(166);
        platform_.boxes.show(aviso, box::stop, janela_.windowTitle(), &janela_);
        return;
    }
    const DisabledWindow desactivada(janela_);
    frmEnvelope(geral_, CrystalReport1, &janela_).exec();
}

// A direct print finds the window free, as that of a list does.
void Impressao::ImprimirEtiquetas_Click()
{
    const DisabledWindow desactivada(janela_);
    frmEtiquetas form(geral_, CrystalReport1, ListaNomes, &janela_);
    connect(&form, &QDialog::finished, &janela_, [this] { janela_.setEnabled(true); });
    form.exec();
}
