#include "printing/frmEtiquetas.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "data/Sementes.h"
#include "data/Traduzir.h"
#include "report/ReportControl.h"

#include <array>
#include <QLocale>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
struct Formato {
    const char16_t *definicao;
    int colunas;
    int linhas;
    double largura; // of a label, in mm
    double altura;
};

constexpr std::array formatos{Formato{u"etiquetas_3x8.rpt", 3, 8, 70, 37},
                              Formato{u"etiquetas_3x7.rpt", 3, 7, 63.5, 38.1},
                              Formato{u"etiquetas_2x7.rpt", 2, 7, 99.1, 38.1}};

// Behind those that the other dialogs set, which the control keeps.
constexpr int parametro_do_remetente = 22;
constexpr int parametro_da_primeira = 23;

constexpr Translations titulo{u"Imprimir etiquetas", u"Imprimir etiquetas", u"Print labels",
                              u"Imprimir etiquetas", u"Stampa etichette",   u"Imprimer des étiquettes",
                              u"Etiketten drucken"};
constexpr Translations folha{u"&Folha:",  u"&Folha:",         u"S&heet:", u"&Hoja:",
                             u"&Foglio:", u"&Feuille\u00a0:", u"&Bogen:"};
constexpr Translations primeira{u"Primeira &etiqueta:", u"Primeira &etiqueta:", u"&First label:",
                                u"Primera &etiqueta:",  u"Prima &etichetta:",   u"Pr&emière étiquette\u00a0:",
                                u"&Erstes Etikett:"};
constexpr Translations com_remetente{u"Com o &remetente",  u"Com o &remetente", u"With the sende&r",
                                     u"Con el &remitente", u"Con il &mittente", u"Avec l’e&xpéditeur",
                                     u"&Mit Absender"};
constexpr Translations um_de_fora{
    u"1 contacto sem morada fica de fora.",       u"1 contato sem endereço fica de fora.",
    u"1 contact without an address is left out.", u"1 contacto sin dirección queda fuera.",
    u"1 contatto senza indirizzo resta escluso.", u"1 contact sans adresse est omis.",
    u"1 Kontakt ohne Adresse entfällt."};
constexpr Translations varios_de_fora{
    u"%1 contactos sem morada ficam de fora.",       u"%1 contatos sem endereço ficam de fora.",
    u"%1 contacts without an address are left out.", u"%1 contactos sin dirección quedan fuera.",
    u"%1 contatti senza indirizzo restano esclusi.", u"%1 contacts sans adresse sont omis.",
    u"%1 Kontakte ohne Adresse entfallen."};

QString Em_Milimetros(const Formato &formato, const QLocale &locale)
{
    return u"%1 × %2 (%3 × %4 mm)"_s.arg(formato.colunas)
        .arg(formato.linhas)
        .arg(locale.toString(formato.largura), locale.toString(formato.altura));
}
} // namespace

frmEtiquetas::frmEtiquetas(Geral &geral, ReportControl &relatorio, const ListBox &ListaNomes, QWidget *dono)
    : QDialog(dono), geral_(geral), CrystalReport1(relatorio), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(ComboFormato, &ComboBox::Click, this, &frmEtiquetas::ComboFormato_Click);
    connect(cmdImprimir, &QPushButton::clicked, this, &frmEtiquetas::cmdImprimir_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmEtiquetas::Form_Unload);

    Legendar();
    opcoes->FrameEstilo->hide();
    opcoes->Carregar(geral_, ListaNomes);
    Oferecer_Formatos();
    cbRemetente->setChecked(!sementes::Remetente_De_Amostra(geral_.RemetenteBD));
    // Behind the options' own answers, which change the selection.
    connect(opcoes->ComboGrupos, &ComboBox::Click, this, &frmEtiquetas::Mostrar_Os_Que_Ficam_De_Fora);
    connect(opcoes->OptionTodos, &QRadioButton::toggled, this, &frmEtiquetas::Mostrar_Os_Que_Ficam_De_Fora);
    Mostrar_Os_Que_Ficam_De_Fora();
}

void frmEtiquetas::Legendar()
{
    setWindowTitle(Traduzir(titulo, geral_));
    lblFormato->setText(Traduzir(folha, geral_));
    lblPrimeira->setText(Traduzir(primeira, geral_));
    cbRemetente->setText(Traduzir(com_remetente, geral_));
    CheckBoxPrevisualizar->setText(geral_.Ler_Idioma(77));
    cmdImprimir->setText(geral_.Ler_Idioma(80));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
}

void frmEtiquetas::Oferecer_Formatos()
{
    for (const Formato &formato : formatos)
        ComboFormato->AddItem(Em_Milimetros(formato, locale()));
    ComboFormato->setListIndex(0);
}

void frmEtiquetas::Form_Unload() { pausa_.Retomar(); }

void frmEtiquetas::ComboFormato_Click()
{
    const Formato &formato = formatos.at(static_cast<std::size_t>(ComboFormato->ListIndex()));
    txtPrimeira->setMaximum(formato.colunas * formato.linhas);
}

void frmEtiquetas::Mostrar_Os_Que_Ficam_De_Fora()
{
    const qsizetype quantos = Sem_Morada();
    const QString aviso = Traduzir(quantos == 1 ? um_de_fora : varios_de_fora, geral_);
    lblDeFora->setText(quantos == 0 ? QString() : QString(aviso).replace(u"%1"_s, QString::number(quantos)));
}

qsizetype frmEtiquetas::Sem_Morada()
{
    QSet<QString> com;
    Recordset &moradas = geral_.de.Abrir("cmdProcurarMorada", {u"_%"_s});
    for (; !moradas.Eof(); moradas.MoveNext())
        com.insert(moradas.Fields("ID").text());
    moradas.Close();
    if (opcoes->OptionSelecionado->isChecked())
        return com.contains(QString::number(geral_.IDContacto)) ? 0 : 1;

    qsizetype sem = 0;
    Recordset &nomes = geral_.de.Abrir("cmdListarNomes", {opcoes->txtGrupoID->text()});
    for (; !nomes.Eof(); nomes.MoveNext())
        if (!com.contains(nomes.Fields("ID").text())) ++sem;
    nomes.Close();
    return sem;
}

// On one line where the label has room for it.
QString frmEtiquetas::Remetente() const
{
    if (!cbRemetente->isChecked()) return {};
    QStringList linhas;
    for (const QString &linha : geral_.RemetenteBD.split(u'\n'))
        if (!linha.trimmed().isEmpty()) linhas << linha.trimmed();
    return linhas.join(u" · "_s);
}

// A preview opens in front of the dialog, which can then run again; a direct print closes it before the run.
void frmEtiquetas::cmdImprimir_Click()
{
    const Formato &formato = formatos.at(static_cast<std::size_t>(ComboFormato->ListIndex()));
    const QString seleccao = opcoes->Seleccao();
    CrystalReport1.setReportFileName(geral_.Ficheiro(QString::fromUtf16(formato.definicao)));
    CrystalReport1.setParameterFields(parametro_do_remetente, u"remetente;%1;TRUE"_s.arg(Remetente()));
    CrystalReport1.setParameterFields(parametro_da_primeira, u"primeira;%1;TRUE"_s.arg(txtPrimeira->value()));
    relatorio::Indicar_Base(geral_, CrystalReport1);
    CrystalReport1.ReplaceSelectionFormula((seleccao.isEmpty() ? seleccao : seleccao + u" and "_s) +
                                           u"{TblLista.Morada}<>''"_s);
    CrystalReport1.setSortFields(0, u"+{TblLista.Nome}"_s);
    if (CheckBoxPrevisualizar->isChecked()) {
        relatorio::Pre_Visualizar(withoutMnemonic(CheckBoxPrevisualizar->text()), CrystalReport1);
    } else {
        CrystalReport1.PrinterSelect();
        CrystalReport1.setDestination(ReportControl::Printer);
        accept();
    }
    CrystalReport1.setAction(1);
}
