#include "printing/frmImprimir.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "data/Traduzir.h"
#include "report/ReportControl.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
// What a definition calls a label, and the words for it: those of a text, or fixed ones.
struct Parametro {
    const char16_t *nome;
    qint16 texto; // 0 for fixed words
    const char16_t *palavras = u"";
};

constexpr std::array parametros{
    Parametro{u"telefone1", 28},
    Parametro{u"telefone2", 29},
    Parametro{u"fax", 0, u"Fax"},
    Parametro{u"telemovel1", 30},
    Parametro{u"telemovel2", 31},
    Parametro{u"telemovel3", 32},
    Parametro{u"email1", 0, u"E-mail 1"},
    Parametro{u"email2", 0, u"E-mail 2"},
    Parametro{u"website", 34},
    Parametro{u"aniversario", 38},
    Parametro{u"mes01", 14},
    Parametro{u"mes02", 15},
    Parametro{u"mes03", 16},
    Parametro{u"mes04", 17},
    Parametro{u"mes05", 18},
    Parametro{u"mes06", 19},
    Parametro{u"mes07", 20},
    Parametro{u"mes08", 21},
    Parametro{u"mes09", 22},
    Parametro{u"mes10", 23},
    Parametro{u"mes11", 24},
    Parametro{u"mes12", 25},
};
constexpr std::size_t parametros_da_lista = 6; // the telephone list takes the first ones alone
constexpr int parametro_do_titulo = 24;        // behind all others, which the control keeps

constexpr Translations varias_por_pagina{u"&Várias fichas por página", u"Várias &fichas por página",
                                         u"Several s&heets a page",    u"Varias &fichas por página",
                                         u"Più sche&de per pagina",    u"Plusieurs &fiches par page",
                                         u"&Mehrere Kontakte je Seite"};
} // namespace

// The background timers are let run at the load too, unlike in any other form.
frmImprimir::frmImprimir(Geral &geral, ReportControl &relatorio, const ListBox &ListaNomes, QWidget *dono)
    : QDialog(dono), geral_(geral), CrystalReport1(relatorio)
{
    setupUi(this);
    scale::apply(*this);
    connect(opcoes->OptionMemo, &QRadioButton::toggled, cbVariasPorPagina, &QWidget::setEnabled);
    connect(cmdImprimir, &QPushButton::clicked, this, &frmImprimir::cmdImprimir_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmImprimir::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"start"_s);
    Legendar();
    opcoes->Carregar(geral_, ListaNomes);
}

void frmImprimir::Legendar()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(73)));
    CheckBoxPrevisualizar->setText(geral_.Ler_Idioma(77));
    cbVariasPorPagina->setText(Traduzir(varias_por_pagina, geral_));
    cmdImprimir->setText(geral_.Ler_Idioma(80));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
}

void frmImprimir::Form_Unload() { geral_.temporizadores.Gerir_Temporizadores(u"start"_s); }

// A preview opens in front of the dialog, which can then run again; a direct print closes it before the run.
void frmImprimir::cmdImprimir_Click()
{
    Escolher_Definicao();
    relatorio::Indicar_Base(geral_, CrystalReport1);
    CrystalReport1.ReplaceSelectionFormula({});
    CrystalReport1.ReplaceSelectionFormula(opcoes->Seleccao());
    Escolher_Destino();
    CrystalReport1.setSortFields(0, u"+{TblLista.Nome}"_s);
    if (!CheckBoxPrevisualizar->isChecked()) accept();
    CrystalReport1.setAction(1);
}

void frmImprimir::Escolher_Definicao()
{
    const bool fichas = opcoes->OptionMemo->isChecked();
    const bool varias = fichas && cbVariasPorPagina->isChecked();
    CrystalReport1.setReportFileName(varias ? geral_.Ficheiro(u"fichas.rpt"_s) : opcoes->Definicao());
    if (opcoes->OptionContactos->isChecked())
        CrystalReport1.setParameterFields(parametro_do_titulo, u"titulo;%1;TRUE"_s.arg(opcoes->Titulo()));
    else
        Dar_Rotulos(fichas ? parametros.size() : parametros_da_lista);
}

void frmImprimir::Dar_Rotulos(std::size_t quantos)
{
    for (std::size_t i = 0; i < quantos; ++i) {
        const auto &[nome, texto, palavras] = parametros[i];
        const QString valor = texto == 0 ? QString::fromUtf16(palavras) : geral_.Ler_Idioma(texto);
        CrystalReport1.setParameterFields(static_cast<int>(i),
                                          QString::fromUtf16(nome) + u';' + valor + u";TRUE"_s);
    }
}

void frmImprimir::Escolher_Destino()
{
    if (CheckBoxPrevisualizar->isChecked())
        return relatorio::Pre_Visualizar(withoutMnemonic(CheckBoxPrevisualizar->text()), CrystalReport1);
    CrystalReport1.PrinterSelect();
    CrystalReport1.setDestination(ReportControl::Printer);
}
