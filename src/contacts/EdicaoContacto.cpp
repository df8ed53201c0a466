#include "contacts/EdicaoContacto.h"

#include "contacts/frmAddEdit.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "controls/Controls.h"
#include "controls/DisabledWindow.h"
#include "controls/ListBox.h"

#include <QAbstractButton>
#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_novo_contacto = 26;
constexpr qint16 texto_editar_contacto = 53;
} // namespace

EdicaoContacto::EdicaoContacto(QWidget &janela, Geral &geral, Platform &platform, ListaContactos &lista)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform), lista_(lista)
{
    auto &cmdNovo = control<QAbstractButton>(janela, u"cmdNovo"_s);
    auto &cmdEditar = control<QAbstractButton>(janela, u"cmdEditar"_s);
    connect(&cmdNovo, &QAbstractButton::clicked, this, &EdicaoContacto::cmdNovo_Click);
    connect(&cmdEditar, &QAbstractButton::clicked, this, &EdicaoContacto::cmdEditar_Click);

    // Every other way presses the button, so a disabled one bars them all.
    for (const auto &nome : {u"NovoContacto"_s, u"novo_contacto"_s})
        connect(&control<QAction>(janela, nome), &QAction::triggered, &cmdNovo, &QAbstractButton::click);
    for (const auto &nome : {u"EditarContacto"_s, u"editar_contacto"_s, u"RightClickEditar"_s})
        connect(&control<QAction>(janela, nome), &QAction::triggered, &cmdEditar, &QAbstractButton::click);
    connect(&control<ListBox>(janela, u"ListaNomes"_s), &ListBox::DblClick, &cmdEditar,
            &QAbstractButton::click);
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
    connect(&form, &frmAddEdit::Sem_Grupos, this, &EdicaoContacto::Sem_Grupos);
    form.setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(titulo)));
    if (form.Carregar()) form.exec();
}
