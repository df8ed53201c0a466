#include "reminders/frmAddEditTarefa.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Rascunho.h"
#include "platform/Platform.h"
#include "reminders/Momento.h"

using namespace Qt::StringLiterals;

frmAddEditTarefa::frmAddEditTarefa(Geral &geral, Platform &platform, QWidget &janela, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform), janela_(janela), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    txtTarefa->installEventFilter(this);
    connect(txtTarefa, &QPlainTextEdit::textChanged, this, &frmAddEditTarefa::txtTarefa_Change);
    connect(cmdOk, &QPushButton::clicked, this, &frmAddEditTarefa::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmAddEditTarefa::Form_Unload);
    new Rascunho(*this, geral_, platform_, [this] {
        return geral_.ModoTarefa == "Edit"_L1 ? u"tarefa "_s + txtIDTarefa->text() : u"tarefa nova"_s;
    });

    // In the mode "Edit" the opener's own closing brings the timers back.
    if (geral_.ModoTarefa != "Add"_L1) pausa_.Largar();
    Atribuir_Legendas();
    Preencher_Repeticoes();
    const bool edita = geral_.ModoTarefa == "Edit"_L1;
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(edita ? 171 : 149)));
    if (!edita) Preparar_Nova();
}

void frmAddEditTarefa::Atribuir_Legendas()
{
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    lblTarefa->setText(geral_.Ler_Idioma(167));
    lblData->setText(geral_.Ler_Idioma(168));
    lblHora->setText(geral_.Ler_Idioma(169));
    lblRepeticao->setText(geral_.Ler_Idioma(174));
}

void frmAddEditTarefa::Preencher_Repeticoes()
{
    Recordset &rs = geral_.de.Abrir("cmdListarRepeticao");
    for (; !rs.Eof(); rs.MoveNext()) {
        ComboRepeticao->AddItem(rs.Fields("Nome").textOrEmpty());
        ComboRepeticao->SetItemData(ComboRepeticao->NewIndex(), rs.Fields("ID").number());
    }
    rs.Close();
}

void frmAddEditTarefa::Preparar_Nova()
{
    DataTarefa->setDate(platform_.clock.today());
    HoraTarefa->setTime(platform_.clock.now().time());
    ComboRepeticao->setListIndex(0);
}

void frmAddEditTarefa::Preencher(const Campos &campos)
{
    Tarefa_.load(*txtTarefa, campos.Tarefa);
    DataTarefa->setDate(Data_Do_Texto(campos.Data));
    HoraTarefa->setTime(Hora_Do_Texto(campos.Hora));
    ComboRepeticao->setCurrentText(campos.NomeRepeticao);
    txtIDTarefa->setText(campos.ID);
    txtTarefa->selectAll();
}

void frmAddEditTarefa::txtTarefa_Change() { cmdOk->setEnabled(!txtTarefa->toPlainText().isEmpty()); }

// Enter breaks a line in the text, and confirms everywhere else.
bool frmAddEditTarefa::eventFilter(QObject *observado, QEvent *evento)
{
    if (evento->type() == QEvent::FocusIn) cmdOk->setDefault(false);
    if (evento->type() == QEvent::FocusOut) cmdOk->setDefault(true);
    return QDialog::eventFilter(observado, evento);
}

void frmAddEditTarefa::cmdOk_Click()
{
    if (Ja_Passou()) {
        platform_.boxes.show(geral_.Ler_Idioma(170), box::stop, this);
        DataTarefa->setFocus();
        return;
    }
    Gravar();
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
    accept();
}

// By the wall clock in whole minutes; the present minute counts as passed. A text of this form keeps its
// order where a moment of the time zone would not: in the hour that the spring leaves out, a task still has
// its place.
bool frmAddEditTarefa::Ja_Passou() const
{
    const auto minuto = [](QDate dia, QTime hora) {
        return std::pair(dia, QTime(hora.hour(), hora.minute()));
    };
    const QDateTime agora = platform_.clock.now();
    return minuto(DataTarefa->date(), HoraTarefa->time()) <= minuto(agora.date(), agora.time());
}

void frmAddEditTarefa::Gravar()
{
    const QString Tarefa = Tarefa_.stored(*txtTarefa);
    const QString Data = Texto_Da_Data(DataTarefa->date());
    const QString Hora = Texto_Da_Hora(HoraTarefa->time());
    const QString &Utilizador = geral_.SessaoActual.IdUtilizador;
    const int IDRepeticao = ComboRepeticao->ItemData(ComboRepeticao->ListIndex());
    if (geral_.ModoTarefa == "Edit"_L1)
        geral_.de.Executar("cmdUpdateTarefa",
                           {Tarefa, Data, Hora, Utilizador, IDRepeticao, txtIDTarefa->text()});
    else
        geral_.de.Executar("cmdAdicionarTarefa", {Tarefa, Data, Hora, Utilizador, IDRepeticao});
}

void frmAddEditTarefa::Form_Unload()
{
    janela_.setEnabled(true);
    pausa_.Retomar();
}
