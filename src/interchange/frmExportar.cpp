#include "interchange/frmExportar.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "platform/Failure.h"
#include "report/ReportControl.h"

using namespace Qt::StringLiterals;

namespace
{
enum Formato { Excel, Texto, Word };

int Tipo_Do_Formato(int formato)
{
    switch (formato) {
    case Excel:
        return ReportControl::Spreadsheet;
    case Texto:
        return ReportControl::Text;
    default:
        return ReportControl::Document;
    }
}
} // namespace

frmExportar::frmExportar(Geral &geral, ReportControl &relatorio, const ListBox &ListaNomes, QWidget *dono)
    : QDialog(dono), geral_(geral), CrystalReport1(relatorio), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdExportar, &QPushButton::clicked, this, &frmExportar::cmdExportar_Click);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmExportar::Form_Unload);

    Legendar();
    opcoes->Carregar(geral_, ListaNomes);
    Oferecer_Formatos();
}

void frmExportar::Legendar()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(257)));
    frameExportar->setTitle(withoutMnemonic(geral_.Ler_Idioma(257)));
    cmdExportar->setText(geral_.Ler_Idioma(257));
    cmdFechar->setText(geral_.Ler_Idioma(135));
    setSpokenName(*ComboExportar, windowTitle());
}

void frmExportar::Oferecer_Formatos()
{
    const std::pair<QString, Formato> formatos[]{
        {u"Excel (XLS)"_s, Excel}, {u"Texto (TXT)"_s, Texto}, {u"Word (DOC)"_s, Word}};
    for (const auto &[nome, numero] : formatos) {
        ComboExportar->AddItem(nome);
        ComboExportar->SetItemData(ComboExportar->NewIndex(), numero);
    }
    ComboExportar->setListIndex(0);
}

void frmExportar::Form_Unload() { pausa_.Retomar(); }

// A step that fails is skipped. The labels are what an earlier print left in the control, or the definition's
// own.
void frmExportar::cmdExportar_Click()
{
    const std::function<void()> passos[]{
        [this] { CrystalReport1.setReportFileName(opcoes->Definicao()); },
        [this] { relatorio::Indicar_Base(geral_, CrystalReport1); },
        [this] { CrystalReport1.ReplaceSelectionFormula({}); },
        [this] { CrystalReport1.ReplaceSelectionFormula(opcoes->Seleccao()); },
        [this] {
            CrystalReport1.setPrintFileType(
                Tipo_Do_Formato(ComboExportar->ItemData(ComboExportar->ListIndex())));
        },
        [this] { CrystalReport1.setDestination(ReportControl::File); },
        [this] { CrystalReport1.setSortFields(0, u"+{TblLista.Nome}"_s); },
        [this] { CrystalReport1.setAction(1); },
    };
    for (const auto &passo : passos)
        skipFailure(passo);
}
