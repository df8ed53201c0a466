#include "contacts/frmNovoGrupo.h"

#include "contacts/ListaContactos.h"
#include "contacts/Preencher_Utilizadores.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"

#include <QShowEvent>

using namespace Qt::StringLiterals;

frmNovoGrupo::frmNovoGrupo(Geral &geral, ListaContactos &lista, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      lista_(lista),
      novo_(geral.de, "TblGrupos", {"NomeGrupo", "IdUtilizador"}),
      pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(txtGrupo, &QLineEdit::textChanged, this, &frmNovoGrupo::txtGrupo_Change);
    connect(cmdCriarUtilizador, &QPushButton::clicked, this, &frmNovoGrupo::CriarUtilizador);
    connect(cmdOk, &QPushButton::clicked, this, &frmNovoGrupo::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmNovoGrupo::Form_Unload);

    setWindowTitle(geral_.Ler_Idioma(113));
    Label1->setText(geral_.Ler_Idioma(112));
    Label2->setText(geral_.Ler_Idioma(271));
    // Its letter would be that of cmdCancelar.
    cmdCriarUtilizador->setText(withoutMnemonic(geral_.Ler_Idioma(130)));
    cmdOk->setText(geral_.Ler_Idioma(228));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
}

void frmNovoGrupo::Form_Unload() { pausa_.Retomar(); }

// Each time the form comes up, since a user may have been made in between.
void frmNovoGrupo::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous()) Preencher_Utilizadores(geral_, *ComboUsers);
}

void frmNovoGrupo::txtGrupo_Change() { cmdOk->setEnabled(!txtGrupo->text().isEmpty()); }

void frmNovoGrupo::cmdOk_Click()
{
    const QString nome = txtGrupo->text();
    const QString dono = ComboUsers->ChosenItemData();
    const auto inserir = [&] { geral_.de.Executar("cmdInserirGrupo", {nome, dono}); };
    novo_.Gravar({nome, dono}, inserir, [&](const QString &ID) {
        geral_.de.Executar("cmdRenameGroup", {nome, ID});
        geral_.de.Executar("cmdUpdateGrupoUser", {dono, ID});
    });
    lista_.Carregar_Grupos();
    accept();
}
