#include "session/PaineSons.h"

#include "data/Geral.h"
#include "data/Tocar_Som.h"
#include "controls/Controls.h"
#include "platform/Platform.h"
#include "ui_frmOpcoes.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int evento_email = 0; // row of comboEventos; the other one is the task
}

PaineSons::PaineSons(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral, Platform &platform)
    : QObject(&opcoes), opcoes_(opcoes), controlos_(controlos), geral_(geral), platform_(platform)
{
    connect(controlos_.comboEventos, &ComboBox::Click, this, &PaineSons::comboEventos_Click);
    connect(controlos_.cmdPlay, &QPushButton::clicked, this, &PaineSons::cmdPlay_Click);
    connect(controlos_.cmdProcurarSom, &QPushButton::clicked, this, &PaineSons::cmdProcurarSom_Click);
}

void PaineSons::Preencher()
{
    controlos_.comboEventos->AddItem(withoutMnemonic(geral_.Ler_Idioma(245)));
    controlos_.comboEventos->AddItem(withoutMnemonic(geral_.Ler_Idioma(269)));
    controlos_.comboEventos->setListIndex(evento_email);
}

bool PaineSons::Escolhido_O_Email() const { return controlos_.comboEventos->ListIndex() == evento_email; }

void PaineSons::comboEventos_Click()
{
    controlos_.txtCaminhoSom->setText(Escolhido_O_Email() ? Som_Do_Email(geral_) : Som_Da_Tarefa(geral_));
}

void PaineSons::cmdPlay_Click() { Tocar_Som(platform_.sound, controlos_.txtCaminhoSom->text()); }

void PaineSons::cmdProcurarSom_Click()
{
    const QString filtro = withoutMnemonic(geral_.Ler_Idioma(267)) + u" (*.wav)|*.wav"_s;
    const auto ficheiro = platform_.dialogs.openFile(filtro, {}, &opcoes_);
    if (!ficheiro) return;
    controlos_.txtCaminhoSom->setText(*ficheiro);
    (Escolhido_O_Email() ? geral_.SomEmail : geral_.SomTarefa) = *ficheiro;
}

void PaineSons::Escrever()
{
    const QString seccao = geral_.Seccao_Do_Utilizador(u"som"_s);
    if (!geral_.SomEmail.isEmpty()) geral_.ini.Escrever_Ini(seccao, u"email"_s, geral_.SomEmail);
    if (!geral_.SomTarefa.isEmpty()) geral_.ini.Escrever_Ini(seccao, u"tarefa"_s, geral_.SomTarefa);
}
