#include "contacts/frmDeleteGroup.h"

#include "contacts/DesfazerEliminacao.h"
#include "contacts/ListaContactos.h"
#include "contacts/Mover_Contactos.h"
#include "contacts/Preencher_Grupos.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/CartoesGuardados.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

frmDeleteGroup::frmDeleteGroup(Geral &geral, Platform &platform, ListaContactos &lista,
                               DesfazerEliminacao &desfazer, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      desfazer_(desfazer),
      pausa_(geral.temporizadores)
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
    const QString destino = OptionMover->isChecked() ? ComboGrupos2->ChosenItemData() : QString();
    if (!Pode_Mover(geral_, platform_, grupo, destino, this)) return;
    Eliminar_Com_Os_Contactos(grupo, destino);
    lista_.Refrescar();
    accept();
}

// Nobody is asked before the contacts go, for without a destination they do.
void frmDeleteGroup::Eliminar_Com_Os_Contactos(const QString &grupo, const QString &destino)
{
    desfazer_.Eliminar_Grupo(grupo, destino, [&] {
        if (destino.isEmpty()) {
            CartoesGuardados(geral_.de).Eliminar_Do_Grupo(grupo);
            geral_.de.Executar("cmdEliminarNomeByGroup", {grupo});
        } else {
            Mover_Contactos(geral_, grupo, destino);
        }
        geral_.de.Executar("cmdDeleteGroup", {grupo});
    });
}

void frmDeleteGroup::Dizer(qint16 texto)
{
    platform_.boxes.show(geral_.Ler_Idioma(texto), box::stop, windowTitle(), this);
}
