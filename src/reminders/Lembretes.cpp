#include "reminders/Lembretes.h"

#include "controls/DisabledWindow.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "reminders/Alarme.h"
#include "reminders/Aniversarios.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmListaTarefas.h"

#include <QAction>
#include <QApplication>

using namespace Qt::StringLiterals;

namespace
{
// Each form exists once. The tray menu can ask again for one that is open: it comes to the front.
template<class Formulario> bool Trazer_Para_A_Frente()
{
    for (QWidget *janela : QApplication::topLevelWidgets()) {
        if (qobject_cast<Formulario *>(janela) == nullptr || !janela->isVisible()) continue;
        janela->raise();
        janela->activateWindow();
        return true;
    }
    return false;
}
} // namespace

Lembretes::Lembretes(Janela &janela, Geral &geral, Platform &platform, ReportControl &relatorio)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      alarme_(new Alarme(janela, geral, platform, relatorio)),
      aniversarios_(new Aniversarios(janela, geral, platform))
{
    for (QAction *comando : {janela.NovaTarefa, janela.nova_tarefa, janela.SystemTrayNovaTarefa})
        connect(comando, &QAction::triggered, this, &Lembretes::NovaTarefa_Click);
    for (QAction *comando : {janela.ListaTarefas, janela.SystemTrayListaTarefas})
        connect(comando, &QAction::triggered, this, &Lembretes::ListaTarefas_Click);
    for (QAction *comando : {janela.Aniversarios, janela.aniversarios})
        connect(comando, &QAction::triggered, aniversarios_, &::Aniversarios::Mostrar);
}

void Lembretes::NovaTarefa_Click()
{
    if (Trazer_Para_A_Frente<frmAddEditTarefa>()) return;
    geral_.ModoTarefa = u"Add"_s;
    const DisabledWindow desactivada(janela_);
    frmAddEditTarefa(geral_, platform_, janela_, &janela_).exec();
}

void Lembretes::ListaTarefas_Click()
{
    if (Trazer_Para_A_Frente<frmListaTarefas>()) return;
    const DisabledWindow desactivada(janela_);
    frmListaTarefas form(geral_, platform_, janela_);
    connect(&form, &frmListaTarefas::TarefaEditada, alarme_, &Alarme::Fechar_Cartao);
    form.exec();
}

bool Lembretes::Responder() { return alarme_->Responder(); }

void Lembretes::Mostrar_Aniversarios_Ao_Iniciar() { aniversarios_->Mostrar_Ao_Iniciar(); }

void Lembretes::Tarefas_Mudaram()
{
    alarme_->Tarefas_Mudaram();
    if (auto *lista = qobject_cast<frmListaTarefas *>(QApplication::activeModalWidget())) lista->Refrescar();
}
