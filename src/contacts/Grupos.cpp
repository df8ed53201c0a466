#include "contacts/Grupos.h"

#include "contacts/frmDeleteGroup.h"
#include "contacts/frmEditGroup.h"
#include "contacts/frmNovoGrupo.h"
#include "controls/DisabledWindow.h"
#include "controls/ModalForm.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Platform.h"

#include <QAction>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

Grupos::Grupos(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista,
               DesfazerEliminacao &desfazer)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      desfazer_(desfazer)
{
    connect(janela.CriarGrupos, &QAction::triggered, this, &Grupos::CriarGrupos_Click);
    connect(janela.EditarGrupos, &QAction::triggered, this, &Grupos::EditarGrupos_Click);
    connect(janela.EliminarGrupos, &QAction::triggered, this, &Grupos::EliminarGrupos_Click);
}

void Grupos::CriarGrupos_Click()
{
    if (Tem_Direito_A_Grupos()) Mostrar_frmNovoGrupo();
}

void Grupos::Mostrar_frmNovoGrupo()
{
    const DisabledWindow desactivada(janela_);
    frmNovoGrupo form(geral_, lista_, &janela_);
    connect(&form, &frmNovoGrupo::CriarUtilizador, this, [&] { Criar_Utilizador(form); });
    runModal(form);
}

void Grupos::EditarGrupos_Click()
{
    if (!Tem_Direito_A_Grupos()) return;
    const DisabledWindow desactivada(janela_);
    frmEditGroup form(geral_, platform_, lista_, &janela_);
    connect(&form, &frmEditGroup::CriarUtilizador, this, [&] { Criar_Utilizador(form); });
    runModal(form);
}

void Grupos::EliminarGrupos_Click()
{
    if (!Tem_Direito_A_Grupos()) return;
    const DisabledWindow desactivada(janela_);
    frmDeleteGroup form(geral_, platform_, lista_, desfazer_, &janela_);
    runModal(form);
}

bool Grupos::Tem_Direito_A_Grupos()
{
    return Tem_Direito(geral_.SessaoActual.Grupos, geral_, platform_, &janela_);
}

// Whatever happens in the user form, the group form comes back: nobody could reach it otherwise.
void Grupos::Criar_Utilizador(QDialog &form)
{
    if (!Tem_Direito(geral_.SessaoActual.Utilizadores, geral_, platform_, &form)) return;
    form.hide();
    const auto volta = qScopeGuard([&form] { form.show(); });
    Q_EMIT CriarUtilizador();
}
