#include "data/frmSeleccionarIdioma.h"

#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Sementes.h"
#include "platform/Platform.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmSeleccionarIdioma::frmSeleccionarIdioma(Geral &geral, Platform &platform)
    : geral_(geral), platform_(platform)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdPT, &QAbstractButton::clicked, this, &frmSeleccionarIdioma::cmdPT_Click);
    connect(cmdBR, &QAbstractButton::clicked, this, &frmSeleccionarIdioma::cmdBR_Click);
    connect(cmdUK, &QAbstractButton::clicked, this, &frmSeleccionarIdioma::cmdUK_Click);
    connect(cmdFR, &QAbstractButton::clicked, this, &frmSeleccionarIdioma::cmdFR_Click);
    for (QAbstractButton *cmd : {cmdDE, cmdES, cmdIT})
        connect(cmd, &QAbstractButton::clicked, this, &frmSeleccionarIdioma::cmdIndisponivel_Click);
    connect(this, &QDialog::finished, this, &frmSeleccionarIdioma::Form_Unload);
    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
}

// The two timers alone: the mail check stays as it is until the mail cycle begins.
void frmSeleccionarIdioma::Form_Unload()
{
    geral_.temporizadores.timerTarefas.setEnabled(true);
    geral_.temporizadores.timerPonto.setEnabled(true);
}

void frmSeleccionarIdioma::cmdPT_Click() { Semear(sementes::PT()); }
void frmSeleccionarIdioma::cmdBR_Click() { Semear(sementes::BR()); }
void frmSeleccionarIdioma::cmdUK_Click() { Semear(sementes::UK()); }
void frmSeleccionarIdioma::cmdFR_Click() { Semear(sementes::FR()); }

// A button with a picture alone is pressed by the space bar; the form has no default button to take Enter.
void frmSeleccionarIdioma::keyPressEvent(QKeyEvent *event)
{
    auto *bandeira = qobject_cast<QAbstractButton *>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || bandeira == nullptr) return QDialog::keyPressEvent(event);
    if (!event->isAutoRepeat()) bandeira->click();
}

void frmSeleccionarIdioma::cmdIndisponivel_Click()
{
    platform_.boxes.show(u"Idioma não disponível | Language not avaiable"_s, box::stop, windowTitle(), this);
}

void frmSeleccionarIdioma::Semear(const Sementes &sementes)
{
    endOnFailure(platform_.boxes, platform_.process, [&] {
        sementes::Semear(geral_.de, sementes);
        accept();
    });
}
