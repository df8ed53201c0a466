#include "session/PaineArranque.h"

#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/Autorun.h"
#include "ui_frmOpcoes.h"

using namespace Qt::StringLiterals;

namespace
{
QString Palavra(bool sim) { return sim ? u"sim"_s : u"nao"_s; }
} // namespace

PaineArranque::PaineArranque(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral,
                             Platform &platform)
    : QObject(&opcoes), controlos_(controlos), geral_(geral), platform_(platform)
{
    connect(controlos_.OpcaoSim, &QRadioButton::toggled, this, [this](bool posta) {
        if (posta) controlos_.cbMinimizar->setEnabled(true);
    });
    connect(controlos_.OpcaoNao, &QRadioButton::toggled, this, [this](bool posta) {
        if (posta) controlos_.cbMinimizar->setEnabled(false);
    });
}

void PaineArranque::Preencher()
{
    controlos_.OpcaoSim->setChecked(geral_.AutorunArranque == "sim"_L1);
    controlos_.OpcaoNao->setChecked(geral_.AutorunArranque == "nao"_L1);
    controlos_.cbMinimizar->setChecked(geral_.MinimizarArranque == "sim"_L1);
    controlos_.cbMessenger->setChecked(geral_.MessengerActivo == 1);
}

void PaineArranque::Escrever()
{
    Escrever_Autorun();
    Escrever_Minimizar();
    Escrever_Messenger();
}

void PaineArranque::Escrever_Autorun()
{
    const bool sim = controlos_.OpcaoSim->isChecked();
    if (!sim && !controlos_.OpcaoNao->isChecked()) return;
    geral_.ini.Escrever_Ini(u"arranque"_s, u"autorun"_s, Palavra(sim));
    if (sim)
        autorun::Ligar(platform_.registry, geral_.VersaoBD);
    else
        autorun::Desligar(platform_.registry, geral_.VersaoBD);
    geral_.AutorunArranque = Palavra(sim);
}

// A tick in a disabled box counts too.
void PaineArranque::Escrever_Minimizar()
{
    geral_.MinimizarArranque = Palavra(controlos_.cbMinimizar->isChecked());
    geral_.ini.Escrever_Ini(u"arranque"_s, u"minimizar"_s, geral_.MinimizarArranque);
}

void PaineArranque::Escrever_Messenger()
{
    const bool activo = controlos_.cbMessenger->isChecked();
    geral_.MessengerActivo = activo ? 1 : 0;
    geral_.ini.Escrever_Ini(geral_.Seccao_Do_Utilizador(u"messenger"_s), u"activo"_s,
                            activo ? u"1"_s : u"0"_s);
}
