#include "session/Utilizadores.h"

#include "controls/DisabledWindow.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Platform.h"
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmNovoUser.h"
#include "session/Titulo.h"

#include <QAction>

using namespace Qt::StringLiterals;

Utilizadores::Utilizadores(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform)
{
    connect(janela.CriarUtilizadores, &QAction::triggered, this, &Utilizadores::CriarUtilizadores_Click);
    connect(janela.EditarUtilizadores, &QAction::triggered, this, &Utilizadores::EditarUtilizadores_Click);
    connect(janela.EliminarUtilizadores, &QAction::triggered, this,
            &Utilizadores::EliminarUtilizadores_Click);
}

void Utilizadores::Mostrar_frmNovoUser()
{
    const DisabledWindow desactivada(janela_);
    frmNovoUser(geral_, platform_, &janela_).exec();
}

void Utilizadores::CriarUtilizadores_Click()
{
    if (Tem_Direito_A_Utilizadores()) Mostrar_frmNovoUser();
}

void Utilizadores::EditarUtilizadores_Click()
{
    if (!Pode_Escolher_Utilizador()) return;
    const DisabledWindow desactivada(janela_);
    frmEditUser(geral_, platform_, &janela_).exec();
}

void Utilizadores::EliminarUtilizadores_Click()
{
    if (!Pode_Escolher_Utilizador()) return;
    const DisabledWindow desactivada(janela_);
    frmDeleteUser(geral_, platform_, janela_).exec();
}

bool Utilizadores::Tem_Direito_A_Utilizadores()
{
    return Tem_Direito(geral_.SessaoActual.Utilizadores, geral_, platform_, &janela_);
}

bool Utilizadores::Pode_Escolher_Utilizador()
{
    if (!Tem_Direito_A_Utilizadores()) return false;
    Recordset &rs = geral_.de.Abrir("cmdVerUsers");
    const bool ha = rs.RecordCount() != 0;
    rs.Close();
    if (!ha) platform_.boxes.show(geral_.Ler_Idioma(106), box::stop, &janela_);
    return ha;
}

// A session without a user of its own has no row, and none to lose.
void Utilizadores::Seguir()
{
    Sessao &sessao = geral_.SessaoActual;
    if (sessao.Utilizador.isEmpty() || sessao.IdUtilizador == "0"_L1) return;
    Recordset &rs = geral_.de.Abrir("cmdEditarUser", {sessao.IdUtilizador});
    const bool existe = !rs.Eof();
    if (existe) sessao = Sessao_Da_Linha(rs);
    rs.Close();
    if (!existe) return Q_EMIT Eliminado();
    janela_.setWindowTitle(Titulo(geral_));
}
