#include "contacts/EdicaoContacto.h"

#include "contacts/frmAddEdit.h"
#include "controls/DisabledWindow.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Caption.h"
#include "platform/Failure.h"

#include <QAbstractButton>
#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_novo_contacto = 26;
constexpr qint16 texto_editar_contacto = 53;
constexpr qint16 texto_mudado_noutro_posto = 451;
constexpr qint16 texto_eliminado_noutro_posto = 452;
} // namespace

EdicaoContacto::EdicaoContacto(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform), lista_(lista)
{
    connect(janela.cmdNovo, &QAbstractButton::clicked, this, &EdicaoContacto::cmdNovo_Click);
    connect(janela.cmdEditar, &QAbstractButton::clicked, this, &EdicaoContacto::cmdEditar_Click);

    // Every other way presses the button, so a disabled one bars them all.
    for (QAction *comando : {janela.NovoContacto, janela.novo_contacto})
        connect(comando, &QAction::triggered, janela.cmdNovo, &QAbstractButton::click);
    for (QAction *comando : {janela.EditarContacto, janela.editar_contacto, janela.RightClickEditar})
        connect(comando, &QAction::triggered, janela.cmdEditar, &QAbstractButton::click);
    connect(janela.ListaNomes, &ListBox::DblClick, janela.cmdEditar, &QAbstractButton::click);
}

void EdicaoContacto::cmdNovo_Click()
{
    if (!Tem_Direito(geral_.SessaoActual.Adicionar, geral_, platform_, &janela_)) return;
    Abrir(u"Add"_s, texto_novo_contacto);
}

void EdicaoContacto::cmdEditar_Click()
{
    if (!Tem_Direito(geral_.SessaoActual.Editar, geral_, platform_, &janela_)) return;
    Abrir(u"Edit"_s, texto_editar_contacto);
}

void EdicaoContacto::Abrir(const QString &ModoContacto, qint16 titulo)
{
    geral_.ModoContacto = ModoContacto;
    const DisabledWindow desactivada(janela_);
    frmAddEdit form(janela_, geral_, platform_, lista_);
    aberto_ = &form;
    connect(&form, &frmAddEdit::Sem_Grupos, this, &EdicaoContacto::Sem_Grupos);
    form.setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(titulo)));
    if (form.Carregar()) form.exec();
}

bool EdicaoContacto::Edita() const { return aberto_ && geral_.ModoContacto == "Edit"_L1; }

// Where it can't be asked now the server is away, and all may have changed once it is back.
void EdicaoContacto::Contactos_Mudados(const QSet<int> &ids, bool talvez_outros)
{
    if (!Edita() || (!talvez_outros && !ids.contains(geral_.IDContacto))) return;
    skipFailure([this] {
        const LinhaEditada::Estado la = aberto_->La();
        if (la == LinhaEditada::Estado::Mudada) aberto_->Avisar(geral_.Ler_Idioma(texto_mudado_noutro_posto));
        if (la == LinhaEditada::Estado::Eliminada)
            aberto_->Avisar(geral_.Ler_Idioma(texto_eliminado_noutro_posto));
    });
}

void EdicaoContacto::Contactos_Eliminados(const QSet<int> &ids)
{
    if (Edita() && ids.contains(geral_.IDContacto))
        aberto_->Avisar(geral_.Ler_Idioma(texto_eliminado_noutro_posto));
}
