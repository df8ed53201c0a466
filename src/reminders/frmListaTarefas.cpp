#include "reminders/frmListaTarefas.h"

#include "controls/Controls.h"
#include "controls/IconRoom.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Traduzir.h"
#include "platform/Platform.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/Momento.h"

#include <algorithm>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{
enum Coluna { coluna_tarefa, coluna_data, coluna_hora, coluna_repeticao };

constexpr Translations sem_tarefas{u"Não existem tarefas.",
                                   u"Não há tarefas.",
                                   u"There are no tasks.",
                                   u"No hay tareas.",
                                   u"Non ci sono attività.",
                                   u"Il n’y a aucune tâche.",
                                   u"Es sind keine Aufgaben vorhanden."};

// In pixels; the date has the common width and the last column what is left.
constexpr int largura_da_tarefa = 240;
constexpr int largura_da_hora = 55;
constexpr int altura_da_linha = 18; // room for the icon, on rows without it too

// The key of a row is "k" and the task's ID. A description of several lines shows as one.
enum Papel { papel_da_chave = Qt::UserRole, papel_da_tarefa };
QString Id_Da_Chave(const QTreeWidgetItem &item)
{
    return item.data(coluna_tarefa, papel_da_chave).toString().mid(1);
}

QTreeWidgetItem *Novo_Item(const Recordset &rs, QDate hoje)
{
    const Field Data = rs.Fields("Data");
    const Field Hora = rs.Fields("Hora");
    const QString Tarefa = rs.Fields("Tarefa").textOrEmpty();
    auto *item = new QTreeWidgetItem(
        {Tarefa.simplified(), Data.isNull() ? QString() : Texto_Da_Data(Data.date()),
         Hora.isNull() ? QString() : Texto_Da_Hora(Hora.time()), rs.Fields("NomeRepeticao").textOrEmpty()});
    item->setData(coluna_tarefa, papel_da_chave, u'k' + rs.Fields("ID").text());
    item->setData(coluna_tarefa, papel_da_tarefa, Tarefa);
    item->setSizeHint(coluna_tarefa, {0, scale::scaled(altura_da_linha)});
    if (!Data.isNull() && Data.date() == hoje)
        item->setIcon(coluna_tarefa, QIcon(u":/imagens/lista/hoje.svg"_s));
    return item;
}
} // namespace

frmListaTarefas::frmListaTarefas(Geral &geral, Platform &platform, QWidget &janela)
    : QDialog(&janela), geral_(geral), platform_(platform), janela_(janela), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    ListViewTarefas->setColumnWidth(coluna_tarefa, scale::scaled(largura_da_tarefa));
    ListViewTarefas->setColumnWidth(coluna_hora, scale::scaled(largura_da_hora));
    ListViewTarefas->setItemDelegateForColumn(coluna_tarefa, new IconRoom(ListViewTarefas));
    connect(cmdCriar, &QPushButton::clicked, this, &frmListaTarefas::cmdCriar_Click);
    connect(cmdEditar, &QPushButton::clicked, this, &frmListaTarefas::cmdEditar_Click);
    connect(cmdEliminar, &QPushButton::clicked, this, &frmListaTarefas::cmdEliminar_Click);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::reject);
    connect(ListViewTarefas, &QTreeWidget::itemDoubleClicked, this, &frmListaTarefas::cmdEditar_Click);
    connect(this, &QDialog::finished, this, &frmListaTarefas::Form_Unload);

    cmdCriar->setText(geral_.Ler_Idioma(185));
    cmdEditar->setText(geral_.Ler_Idioma(179));
    cmdEliminar->setText(geral_.Ler_Idioma(183));
    cmdFechar->setText(geral_.Ler_Idioma(135));
    Label1->setText(withoutMnemonic(geral_.Ler_Idioma(150)));
    setWindowTitle(Label1->text());
    ListViewTarefas->setAccessibleName(Label1->text());
    ListViewTarefas->setEmptyText(Traduzir(sem_tarefas, geral_));
    Ler_Tarefas(Sem_Linhas::Mantem_A_Lista);
}

// What long words in large letters need for their heading the column of the descriptions gives, which end in
// dots; half of it stays, and then the list scrolls.
void frmListaTarefas::Dar_Lugar_Ao_Ultimo_Titulo()
{
    const QHeaderView &titulos = *ListViewTarefas->header();
    const int barra = ListViewTarefas->verticalScrollBar()->sizeHint().width();
    int resto = ListViewTarefas->width() - 2 * ListViewTarefas->frameWidth() - barra;
    for (const Coluna coluna : {coluna_tarefa, coluna_data, coluna_hora})
        resto -= titulos.sectionSize(coluna);
    // The last column, which takes what the others leave, never gets smaller than a new one.
    const int falta = std::max(titulos.sectionSizeHint(coluna_repeticao), titulos.defaultSectionSize()) - resto;
    const int tarefa = titulos.sectionSize(coluna_tarefa);
    if (falta > 0) ListViewTarefas->setColumnWidth(coluna_tarefa, std::max(tarefa - falta, tarefa / 2));
}

void frmListaTarefas::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    Dar_Lugar_Ao_Ultimo_Titulo();
}

void frmListaTarefas::Ler_Tarefas(Sem_Linhas sem_linhas)
{
    Recordset &rs = geral_.de.Abrir("cmdListarTarefas", {geral_.SessaoActual.IdUtilizador});
    if (!rs.Eof() || sem_linhas == Sem_Linhas::Esvazia_A_Lista) Preencher_Lista(rs);
    rs.Close();
}

void frmListaTarefas::Preencher_Lista(Recordset &rs)
{
    ListViewTarefas->clear();
    ListViewTarefas->setHeaderLabels(
        {geral_.Ler_Idioma(182), geral_.Ler_Idioma(177), geral_.Ler_Idioma(180), geral_.Ler_Idioma(181)});
    const QDate hoje = platform_.clock.today();
    QList<QTreeWidgetItem *> itens;
    for (; !rs.Eof(); rs.MoveNext())
        itens << Novo_Item(rs, hoje);
    ListViewTarefas->addTopLevelItems(itens);
}

void frmListaTarefas::Refrescar()
{
    const QTreeWidgetItem *escolhida = Seleccionada();
    const QString chave = escolhida == nullptr ? QString() : Id_Da_Chave(*escolhida);
    QScrollBar &barra = *ListViewTarefas->verticalScrollBar();
    const int lugar = barra.value();
    Ler_Tarefas(Sem_Linhas::Esvazia_A_Lista);
    for (int i = 0; i < ListViewTarefas->topLevelItemCount() && !chave.isEmpty(); ++i)
        if (QTreeWidgetItem *item = ListViewTarefas->topLevelItem(i); Id_Da_Chave(*item) == chave)
            ListViewTarefas->setCurrentItem(item);
    barra.setValue(lugar);
}

QTreeWidgetItem *frmListaTarefas::Seleccionada() const { return ListViewTarefas->selectedItems().value(0); }

void frmListaTarefas::cmdCriar_Click()
{
    geral_.ModoTarefa = u"Add"_s;
    frmAddEditTarefa(geral_, platform_, janela_, this).exec();
    Ler_Tarefas(Sem_Linhas::Mantem_A_Lista);
}

void frmListaTarefas::cmdEditar_Click()
{
    const QTreeWidgetItem *item = Seleccionada();
    if (item == nullptr) return;
    geral_.ModoTarefa = u"Edit"_s;
    frmAddEditTarefa form(geral_, platform_, janela_, this);
    form.Preencher({.ID = Id_Da_Chave(*item),
                    .Tarefa = item->data(coluna_tarefa, papel_da_tarefa).toString(),
                    .Data = item->text(coluna_data),
                    .Hora = item->text(coluna_hora),
                    .NomeRepeticao = item->text(coluna_repeticao)});
    if (form.exec() == QDialog::Accepted) Q_EMIT TarefaEditada();
    Ler_Tarefas(Sem_Linhas::Mantem_A_Lista);
}

void frmListaTarefas::cmdEliminar_Click()
{
    const QTreeWidgetItem *item = Seleccionada();
    if (item == nullptr) return;
    geral_.de.Executar("cmdEliminarTarefa", {Id_Da_Chave(*item), geral_.SessaoActual.IdUtilizador});
    Ler_Tarefas(Sem_Linhas::Esvazia_A_Lista);
}

void frmListaTarefas::Form_Unload()
{
    pausa_.Retomar();
    janela_.setEnabled(true);
}
