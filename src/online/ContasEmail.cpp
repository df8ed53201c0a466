#include "online/ContasEmail.h"

#include "data/Geral.h"
#include "data/Inteiro.h"
#include "online/frmAddEditEmail.h"
#include "platform/Caption.h"

#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace
{
constexpr int coluna_chave = 0; // TblEmails.ID, which means nothing to a person and stays hidden
}

ContasEmail::ContasEmail(QDialog &opcoes, const Controlos &controlos, Geral &geral)
    : QObject(&opcoes),
      opcoes_(opcoes),
      geral_(geral),
      lvEmails(controlos.lvEmails),
      cmdEditar(controlos.cmdEditar),
      cmdEliminar(controlos.cmdEliminar)
{
    lvEmails.header()->setSectionResizeMode(QHeaderView::Stretch);
    connect(&lvEmails, &QTreeWidget::itemSelectionChanged, this, &ContasEmail::lvEmails_ItemClick);
    connect(&lvEmails, &QTreeWidget::itemDoubleClicked, this, &ContasEmail::cmdEditar_Click);
    connect(&controlos.cmdAdicionar, &QPushButton::clicked, this, &ContasEmail::cmdAdicionar_Click);
    connect(&cmdEditar, &QPushButton::clicked, this, &ContasEmail::cmdEditar_Click);
    connect(&cmdEliminar, &QPushButton::clicked, this, &ContasEmail::cmdEliminar_Click);
}

void ContasEmail::Preencher()
{
    lvEmails.clear();
    Permitir(false);
    lvEmails.setHeaderLabels(
        {QString(), withoutMnemonic(geral_.Ler_Idioma(243)), withoutMnemonic(geral_.Ler_Idioma(244))});
    lvEmails.setColumnHidden(coluna_chave, true);
    Recordset &rs = geral_.de.Abrir("cmdListarEmails", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        new QTreeWidgetItem(&lvEmails, {rs.Fields("ID").text(), rs.Fields("Email").textOrEmpty(),
                                        rs.Fields("ServerName").textOrEmpty()});
    rs.Close();
}

void ContasEmail::lvEmails_ItemClick()
{
    const auto escolhidas = lvEmails.selectedItems();
    if (escolhidas.isEmpty()) return;
    geral_.IDContaEmail = Inteiro(escolhidas.constFirst()->text(coluna_chave));
    Permitir(true);
}

void ContasEmail::cmdAdicionar_Click() { Abrir_Editor(u"Add"_s); }
void ContasEmail::cmdEditar_Click() { Abrir_Editor(u"Edit"_s); }

void ContasEmail::cmdEliminar_Click()
{
    geral_.de.Executar("cmdEliminarEmail", {QString::number(geral_.IDContaEmail)});
    Preencher();
}

void ContasEmail::Abrir_Editor(const QString &ModoEmail)
{
    geral_.ModoEmail = ModoEmail;
    if (frmAddEditEmail(geral_, &opcoes_).exec() == QDialog::Accepted) Preencher();
}

void ContasEmail::Permitir(bool permitido)
{
    cmdEditar.setEnabled(permitido);
    cmdEliminar.setEnabled(permitido);
}
