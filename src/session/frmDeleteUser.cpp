#include "session/frmDeleteUser.h"

#include "contacts/Preencher_Utilizadores.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/PosseDosDados.h"
#include "session/Titulo.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/PalavraPasseDoServidor.h"

using namespace Qt::StringLiterals;

frmDeleteUser::frmDeleteUser(Geral &geral, Platform &platform, QWidget &janela)
    : QDialog(&janela), geral_(geral), platform_(platform), janela_(janela)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdOk, &QPushButton::clicked, this, &frmDeleteUser::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmDeleteUser::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Acrescentar_Utilizadores(geral_, *ComboUsers);
    ComboUsers->setListIndex(0);
    setWindowTitle(geral_.Ler_Idioma(108));
    Label1->setText(geral_.Ler_Idioma(109));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
}

// "stop", and not "start": the alarm and the dot stay off until a form that says "start" has been closed.
void frmDeleteUser::Form_Unload() { geral_.temporizadores.Gerir_Temporizadores(u"stop"_s); }

void frmDeleteUser::cmdOk_Click()
{
    const QString id = ComboUsers->ChosenItemData();
    if (ComboUsers->currentText() != geral_.SessaoActual.Utilizador)
        Eliminar_Outro(id);
    else if (ComboUsers->ListCount() == 1)
        Eliminar_O_Ultimo(id);
    else
        Recusar();
}

// The session goes on without a name, with its owner value and its rights.
void frmDeleteUser::Eliminar_O_Ultimo(const QString &id)
{
    if (Ha_Tarefas_E_Memos(id)) Entregar_Tudo(geral_, u"0"_s);
    geral_.de.Executar("cmdDeleteUser", {id});
    geral_.SessaoActual.Utilizador.clear();
    geral_.SessaoActual.PedirPassSystemTray = false;
    janela_.setWindowTitle(Titulo(geral_));
    geral_.de.Executar("cmdEliminarEmailsUtilizador", {id});
    Esquecer_Servidor(id);
    accept();
}

// With the password of the account there, wherever it is kept.
void frmDeleteUser::Esquecer_Servidor(const QString &id)
{
    if (geral_.de.Em_Dia()) MemoriaDaSincronizacao(geral_.de, id).Esquecer();
    PalavraPasseDoServidor(geral_, platform_.secrets).Esquecer(id);
}

void frmDeleteUser::Recusar()
{
    platform_.boxes.show(geral_.Ler_Idioma(107), box::stop, windowTitle(), this);
}

void frmDeleteUser::Eliminar_Outro(const QString &id)
{
    if (Ha_Tarefas_E_Memos(id)) {
        if (!Confirma()) return;
        geral_.de.Executar("cmdDeleteTarefasPorUtilizador", {id});
        geral_.de.Executar("cmdDeleteMemosPorUtilizador", {id});
        geral_.de.Executar("cmdDeleteEmailsPorUtilizador", {id});
    }
    geral_.de.Executar("cmdDeleteUser", {id});
    geral_.de.Executar("cmdEliminarEmailsUtilizador", {id});
    Esquecer_Servidor(id);
    accept();
}

// The query pairs every task with every memo: it finds nothing while one of the two tables is empty, whatever
// the other holds.
bool frmDeleteUser::Ha_Tarefas_E_Memos(const QString &id)
{
    Recordset &rs = geral_.de.Abrir("cmdVerificarTarefasMemos", {id, id});
    const bool ha = rs.RecordCount() >= 1;
    rs.Close();
    return ha;
}

bool frmDeleteUser::Confirma()
{
    return platform_.boxes.show(geral_.Ler_Idioma(173), box::question | box::yesNo, windowTitle(), this) ==
           answer::yes;
}
