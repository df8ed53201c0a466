#include "contacts/frmEditGroup.h"

#include "contacts/ListaContactos.h"
#include "contacts/Mover_Contactos.h"
#include "contacts/Preencher_Grupos.h"
#include "contacts/Preencher_Utilizadores.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QShowEvent>

using namespace Qt::StringLiterals;

frmEditGroup::frmEditGroup(Geral &geral, Platform &platform, ListaContactos &lista, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform), lista_(lista), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    Legendar();
    // Before its click is heard: the owner comes when the form is shown, with the users to choose from.
    Oferecer_Grupos(geral_, *ComboGrupos);
    Oferecer_Grupos(geral_, *ComboGrupos2);

    connect(ComboGrupos, &ComboBox::Click, this, &frmEditGroup::ComboGrupos_Click);
    for (QRadioButton *opcao : {OptionRenomear, OptionMover, OptionChangeUser})
        connect(opcao, &QRadioButton::toggled, this, &frmEditGroup::Opcao_Click);
    connect(txtRenomearGrupo, &QLineEdit::textChanged, this, &frmEditGroup::txtRenomearGrupo_Change);
    connect(cmdCriarUtilizador, &QPushButton::clicked, this, &frmEditGroup::CriarUtilizador);
    connect(cmdOk, &QPushButton::clicked, this, &frmEditGroup::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmEditGroup::Form_Unload);
}

void frmEditGroup::Legendar()
{
    setWindowTitle(geral_.Ler_Idioma(122));
    Label1->setText(geral_.Ler_Idioma(123));
    OptionRenomear->setText(geral_.Ler_Idioma(124));
    OptionMover->setText(geral_.Ler_Idioma(116));
    OptionChangeUser->setText(geral_.Ler_Idioma(273));
    // Its letter would be that of cmdCancelar.
    cmdCriarUtilizador->setText(withoutMnemonic(geral_.Ler_Idioma(130)));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    txtRenomearGrupo->setAccessibleName(withoutMnemonic(OptionRenomear->text()));
    setSpokenName(*ComboGrupos2, withoutMnemonic(OptionMover->text()));
    setSpokenName(*ComboUsers, withoutMnemonic(OptionChangeUser->text()));
}

void frmEditGroup::Form_Unload() { pausa_.Retomar(); }

// Each time the form comes up, since a user may have been made in between.
void frmEditGroup::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    Preencher_Utilizadores(geral_, *ComboUsers);
    ComboGrupos_Click();
}

// A shared group has no row here, nor has one whose owner is gone: reading it fails, and all users stand for
// it.
void frmEditGroup::ComboGrupos_Click()
{
    onFailure([this] { Mostrar_Dono(); }, [this](const Failure &) { ComboUsers->setListIndex(0); });
}

void frmEditGroup::Mostrar_Dono()
{
    Recordset &rs = geral_.de.Abrir("cmdSelectUtilizadorGrupo", {ComboGrupos->currentText()});
    ComboUsers->ChooseText(rs.Fields("Utilizador").text());
    rs.Close();
}

void frmEditGroup::Opcao_Click()
{
    txtRenomearGrupo->setEnabled(OptionRenomear->isChecked());
    ComboGrupos2->setEnabled(OptionMover->isChecked());
    ComboUsers->setEnabled(OptionChangeUser->isChecked());
    if (OptionRenomear->isChecked()) txtRenomearGrupo->setFocus();
    if (OptionMover->isChecked()) ComboGrupos2->setFocus();
    cmdOk->setEnabled(!OptionRenomear->isChecked() || !txtRenomearGrupo->text().isEmpty());
}

void frmEditGroup::txtRenomearGrupo_Change() { cmdOk->setEnabled(!txtRenomearGrupo->text().isEmpty()); }

void frmEditGroup::cmdOk_Click()
{
    if (OptionMover->isChecked() && !Mover()) return;
    if (OptionChangeUser->isChecked()) Mudar_Dono();
    if (OptionRenomear->isChecked()) Renomear();
    accept();
}

bool frmEditGroup::Mover()
{
    const QString origem = ComboGrupos->ChosenItemData();
    const QString destino = ComboGrupos2->ChosenItemData();
    if (!Pode_Mover(geral_, platform_, origem, destino, this)) return false;
    Mover_Contactos(geral_, origem, destino);
    lista_.Refrescar();
    return true;
}

// The main window stays as it was, even where the group has just left this user's sight.
void frmEditGroup::Mudar_Dono()
{
    geral_.de.Executar("cmdUpdateGrupoUser", {ComboUsers->ChosenItemData(), ComboGrupos->ChosenItemData()});
    const QStringList partes{geral_.Ler_Idioma(262), ComboGrupos->currentText(), geral_.Ler_Idioma(263),
                             ComboUsers->currentText()};
    platform_.boxes.show(partes.join(u' '), box::exclamation, windowTitle(), this);
}

void frmEditGroup::Renomear()
{
    geral_.de.Executar("cmdRenameGroup", {txtRenomearGrupo->text(), ComboGrupos->ChosenItemData()});
    lista_.Refrescar();
}
