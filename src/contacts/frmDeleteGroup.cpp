#include "contacts/frmDeleteGroup.h"

#include "contacts/ListaContactos.h"
#include "contacts/Mover_Contactos.h"
#include "contacts/Preencher_Grupos.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

frmDeleteGroup::frmDeleteGroup(Geral &geral, Platform &platform, ListaContactos &lista, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform), lista_(lista), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(OptionMover, &QRadioButton::toggled, this, &frmDeleteGroup::OptionMover_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmDeleteGroup::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmDeleteGroup::Form_Unload);

    setWindowTitle(geral_.Ler_Idioma(121));
    Label1->setText(geral_.Ler_Idioma(115));
    OptionMover->setText(geral_.Ler_Idioma(116));
    OptionEliminar->setText(geral_.Ler_Idioma(117));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    setSpokenName(*ComboGrupos2, withoutMnemonic(OptionMover->text()));
    Oferecer_Grupos(geral_, *ComboGrupos);
    Oferecer_Grupos(geral_, *ComboGrupos2);
}

void frmDeleteGroup::Form_Unload() { pausa_.Retomar(); }

void frmDeleteGroup::OptionMover_Click() { ComboGrupos2->setEnabled(OptionMover->isChecked()); }

void frmDeleteGroup::cmdOk_Click()
{
    onFailure([this] { Eliminar(); }, [this](const Failure &) { Dizer(119); });
}

void frmDeleteGroup::Eliminar()
{
    if (ComboGrupos->ListCount() == 1) return Dizer(118);
    const QString grupo = ComboGrupos->ChosenItemData();
    if (!Tratar_Dos_Contactos(grupo)) return;
    geral_.de.Executar("cmdDeleteGroup", {grupo});
    lista_.Refrescar();
    accept();
}

// Nobody is asked before the contacts go.
bool frmDeleteGroup::Tratar_Dos_Contactos(const QString &grupo)
{
    if (OptionMover->isChecked())
        return Mover_Contactos(geral_, platform_, grupo, ComboGrupos2->ChosenItemData(), this);
    geral_.de.Executar("cmdEliminarNomeByGroup", {grupo});
    return true;
}

void frmDeleteGroup::Dizer(qint16 texto)
{
    platform_.boxes.show(geral_.Ler_Idioma(texto), box::stop, windowTitle(), this);
}
