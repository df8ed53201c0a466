#include "reminders/frmAddEditTarefa.h"

#include "contacts/frmConflito.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Rascunho.h"
#include "platform/Picture.h"
#include "platform/Platform.h"
#include "reminders/Momento.h"

using namespace Qt::StringLiterals;

namespace
{
enum Coluna { coluna_tarefa, coluna_data, coluna_hora, coluna_repeticao };
enum Campo { campo_tarefa, campo_momento, campo_repeticao };

LinhaEditada::Forma Forma()
{
    return {"TblTarefas",
            {"Tarefa", "Data", "Hora", "IDRepeticao"},
            {{coluna_tarefa}, {coluna_data, coluna_hora}, {coluna_repeticao}}};
}

QString Sem_Dois_Pontos(QString legenda) { return legenda.remove(u':').trimmed(); }
} // namespace

frmAddEditTarefa::frmAddEditTarefa(Geral &geral, Platform &platform, QWidget &janela, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      janela_(janela),
      linha_(geral.de, Forma()),
      nova_(geral.de, Forma().tabela, Forma().colunas),
      pausa_(geral.temporizadores)
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
    linha_.Comecar(campos.ID, Valores());
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
    if (!Gravar()) return;
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

// As the table has them.
QStringList frmAddEditTarefa::Valores() const
{
    return {Tarefa_.stored(*txtTarefa), DataTarefa->date().toString(Qt::ISODate),
            HoraTarefa->time().toString(u"HH:mm:00"_s), ComboRepeticao->currentData().toString()};
}

// False where the form stays open. Raises Failure where no repetition is chosen.
bool frmAddEditTarefa::Gravar()
{
    ComboRepeticao->ItemData(ComboRepeticao->ListIndex());
    if (geral_.ModoTarefa != "Edit"_L1) {
        Escrever_Nova();
        return true;
    }
    const QStringList meus = Valores();
    const auto fim = linha_.Gravar(
        meus, [this](const LinhaEditada::Disputa &disputa) { return Perguntar(disputa); },
        [this](const QStringList &valores) { Escrever(valores, linha_.ID()); });
    if (fim == LinhaEditada::Fim::Eliminada && linha_.Mudou(meus)) return Oferecer_Como_Nova();
    return fim != LinhaEditada::Fim::Deixada;
}

void frmAddEditTarefa::Escrever(const QStringList &valores, const QString &ID)
{
    geral_.de.Executar("cmdUpdateTarefa",
                       {valores[coluna_tarefa], valores[coluna_data], valores[coluna_hora],
                        geral_.SessaoActual.IdUtilizador, valores[coluna_repeticao], ID});
}

void frmAddEditTarefa::Escrever_Nova()
{
    const QStringList valores = Valores();
    const auto inserir = [&] {
        geral_.de.Executar("cmdAdicionarTarefa",
                           {valores[coluna_tarefa], valores[coluna_data], valores[coluna_hora],
                            geral_.SessaoActual.IdUtilizador, valores[coluna_repeticao]});
    };
    nova_.Gravar(valores, inserir, [&](const QString &ID) { Escrever(valores, ID); });
}

std::optional<EncontroDeLinhas::Lugares> frmAddEditTarefa::Perguntar(const LinhaEditada::Disputa &disputa)
{
    const auto momento = [](const QStringList &linha) {
        return Texto_Da_Data(QDate::fromString(linha[coluna_data], Qt::ISODate)) + u' ' +
               linha[coluna_hora].left(5); // hh:mm
    };
    const auto repeticao = [this](const QStringList &linha) {
        return ComboRepeticao->itemText(ComboRepeticao->findData(linha[coluna_repeticao].toInt()));
    };
    CamposDisputados todos;
    todos[campo_tarefa] = {
        Sem_Dois_Pontos(lblTarefa->text()), disputa.la[coluna_tarefa], disputa.aqui[coluna_tarefa], {}};
    todos[campo_momento] = {Sem_Dois_Pontos(lblData->text()), momento(disputa.la), momento(disputa.aqui), {}};
    todos[campo_repeticao] = {
        Sem_Dois_Pontos(lblRepeticao->text()), repeticao(disputa.la), repeticao(disputa.aqui), {}};
    std::erase_if(todos, [&](const auto &campo) { return !disputa.campos.contains(campo.first); });
    frmConflito form(geral_, geral_.Ler_Idioma(431), todos, this);
    if (form.exec() != Accepted) return {};
    return form.Deles();
}

// Another desk has deleted the task, or has answered its alarm.
bool frmAddEditTarefa::Oferecer_Como_Nova()
{
    const int resposta =
        platform_.boxes.show(geral_.Ler_Idioma(430), box::question | box::yesNo, windowTitle(), this);
    if (resposta != answer::yes) return false;
    Escrever_Nova();
    return true;
}

void frmAddEditTarefa::Form_Unload()
{
    janela_.setEnabled(true);
    pausa_.Retomar();
}
