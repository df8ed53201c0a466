#include "reminders/frmTarefas.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "data/Traduzir.h"
#include "platform/Platform.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/Momento.h"
#include "reminders/Repeticao.h"
#include "report/ReportControl.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace
{
constexpr Translations adiar{u"&Adiar",     u"&Adiar",    u"&Snooze",         u"&Posponer",
                             u"&Posticipa", u"&Reporter", u"&Später erinnern"};
constexpr Translations minutos{u"%1 minutos", u"%1 minutos", u"%1 minutes", u"%1 minutos",
                               u"%1 minuti",  u"%1 minutes", u"%1 Minuten"};
} // namespace

// Without an owner: the cycle of alarms goes on under the card and keeps the main window disabled.
frmTarefas::frmTarefas(Geral &geral, Platform &platform, QWidget &janela, ReportControl &relatorio)
    : geral_(geral), platform_(platform), janela_(janela), CrystalReport1(relatorio)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdImprimir, &QPushButton::clicked, this, &frmTarefas::cmdImprimir_Click);
    connect(cmdImprimirTarefa, &QPushButton::clicked, this, &frmTarefas::cmdImprimirTarefa_Click);
    connect(cmdEditar, &QPushButton::clicked, this, &frmTarefas::cmdEditar_Click);
    connect(cmdEliminar, &QPushButton::clicked, this, &frmTarefas::cmdEliminar_Click);

    cmdImprimir->setFocus(); // what is typed next must not end up in the description
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(178)));
    Label1->setText(geral_.Ler_Idioma(167));
    Label2->setText(geral_.Ler_Idioma(168));
    Label3->setText(geral_.Ler_Idioma(169));
    Label4->setText(geral_.Ler_Idioma(174));
    cmdEditar->setText(geral_.Ler_Idioma(179));
    cmdEliminar->setText(geral_.Ler_Idioma(183));
    cmdImprimirTarefa->setText(geral_.Ler_Idioma(80));
    Oferecer_Adiamentos();
}

void frmTarefas::Oferecer_Adiamentos()
{
    auto *menu = new QMenu(cmdAdiar);
    for (const int quantos : {5, 15, 60})
        connect(menu->addAction(translated(minutos, geral_.IdiomaActual).arg(quantos)), &QAction::triggered,
                this, [this, quantos] {
                    Q_EMIT Adiada(quantos);
                    reject();
                });
    cmdAdiar->setText(Traduzir(adiar, geral_));
    cmdAdiar->setMenu(menu);
}

void frmTarefas::cmdImprimir_Click()
{
    const QDate actual = Data_Do_Texto(lblData->text());
    const QString IDRepeticao = txtIDRepeticao->text();
    if (IDRepeticao == sem_repeticao)
        Eliminar();
    else if (const auto seguinte = Data_Seguinte(IDRepeticao, actual))
        Passar_A(*seguinte);
    accept();
}

// Only the date moves: a task of nine o'clock that is acknowledged at three is next due at nine.
void frmTarefas::Passar_A(QDate dia)
{
    geral_.de.Executar("cmdUpdateTarefa",
                       {Tarefa_.stored(*txtTarefa), Texto_Da_Data(dia), lblHora->text(),
                        geral_.SessaoActual.IdUtilizador, txtIDRepeticao->text(), txtIDTarefa->text()});
}

void frmTarefas::Eliminar()
{
    geral_.de.Executar("cmdEliminarTarefa", {txtIDTarefa->text(), geral_.SessaoActual.IdUtilizador});
}

// The card and the task stay as they were: printing is no acknowledgement.
void frmTarefas::cmdImprimirTarefa_Click()
{
    const QString seleccao = u"{TblTarefas.ID}="_s + txtIDTarefa->text();
    CrystalReport1.setReportFileName(geral_.Ficheiro(u"tarefa.rpt"_s));
    CrystalReport1.setParameterFields(0, u"repeticao;"_s + geral_.Ler_Idioma(181) + u";TRUE"_s);
    CrystalReport1.setParameterFields(1, u"utilizador;"_s + geral_.Ler_Idioma(94) + u";TRUE"_s);
    CrystalReport1.setParameterFields(2, u"tarefa;"_s + geral_.Ler_Idioma(182) + u";TRUE"_s);
    relatorio::Indicar_Base(geral_, CrystalReport1);
    CrystalReport1.ReplaceSelectionFormula(seleccao);
    relatorio::Pre_Visualizar(u"Pré-Visualizar Impressão"_s, CrystalReport1);
    CrystalReport1.setWindowShowRefreshBtn(true);
    CrystalReport1.setWindowShowSearchBtn(false);
    CrystalReport1.setAction(1);
}

void frmTarefas::cmdEliminar_Click()
{
    Eliminar();
    accept();
}

void frmTarefas::cmdEditar_Click()
{
    geral_.ModoTarefa = u"Edit"_s;
    frmAddEditTarefa form(geral_, platform_, janela_, this);
    form.Preencher({.ID = txtIDTarefa->text(),
                    .Tarefa = Tarefa_.stored(*txtTarefa),
                    .Data = lblData->text(),
                    .Hora = lblHora->text(),
                    .NomeRepeticao = lblRepeticao->text()});
    if (form.exec() == QDialog::Accepted) accept();
}
