#include "contacts/AccoesContacto.h"

#include "contacts/CartaoContacto.h"
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmEmail.h"
#include "contacts/frmVerImagem.h"
#include "contacts/LinhasLink.h"
#include "contacts/ListaContactos.h"
#include "contacts/WebsiteEmail.h"
#include "controls/DisabledWindow.h"
#include "data/CartoesGuardados.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Platform.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_deseja_eliminar = 54;
} // namespace

AccoesContacto::AccoesContacto(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista,
                               CartaoContacto &cartao, DesfazerEliminacao &desfazer)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      cartao_(cartao),
      desfazer_(desfazer),
      janela_(janela),
      ListaNomes(*janela.ListaNomes),
      txtEmail1(*janela.txtEmail1),
      txtEmail2(*janela.txtEmail2),
      txtWebsite(*janela.txtWebsite)
{
    connect(janela.cmdEliminar, &QAbstractButton::clicked, this, &AccoesContacto::cmdEliminar_Click);
    connect(janela.cmdData, &QAbstractButton::clicked, this, &AccoesContacto::cmdData_Click);
    // Every other way presses the button, so a disabled one bars them all.
    for (QAction *comando : {janela.EliminarContacto, janela.eliminar_contacto, janela.RightClickEliminar})
        connect(comando, &QAction::triggered, janela.cmdEliminar, &QAbstractButton::click);
    for (QAction *comando : {janela.Email, janela.enviar_email, janela.RightClickEmail})
        connect(comando, &QAction::triggered, this, &AccoesContacto::Email_Click);
    for (QAction *comando : {janela.Website, janela.visitar_website, janela.RightClickWebsite})
        connect(comando, &QAction::triggered, this, &AccoesContacto::Website_Click);
    connect(new LinhasLink(janela, geral), &LinhasLink::Clicada, this, &AccoesContacto::Linha_Click);
    connect(janela.Thumb, &PictureLabel::Click, this, &AccoesContacto::Thumb_Click);
}

// The selection is lost, and the card stays empty unless one contact remains.
void AccoesContacto::cmdEliminar_Click()
{
    const int linha = geral_.IndiceContacto; // question and deed are about one row
    if (!Tem_Direito(geral_.SessaoActual.Eliminar, geral_, platform_, &janela_) || !Confirma_Eliminar(linha))
        return;
    const QString ID = QString::number(ListaNomes.ItemData(linha));
    desfazer_.Eliminar_Contacto(ID, [&] {
        CartoesGuardados(geral_.de).Eliminar(ID);
        geral_.de.Executar("cmdEliminarNome", {ID});
    });
    lista_.Limpar_Dados();
    lista_.Carregar_Tabela();
}

bool AccoesContacto::Confirma_Eliminar(int linha)
{
    const QString pergunta = geral_.Ler_Idioma(texto_deseja_eliminar) + u' ' + ListaNomes.List(linha) + u'?';
    return platform_.boxes.show(pergunta, box::question | box::yesNo, janela_.windowTitle(), &janela_) ==
           answer::yes;
}

void AccoesContacto::Email_Click()
{
    if (!txtEmail1.text().isEmpty() && !txtEmail2.text().isEmpty()) {
        const DisabledWindow desactivada(janela_);
        frmEmail(geral_, platform_, txtEmail1.text(), txtEmail2.text(), &janela_).exec();
        return;
    }
    const QString endereco = txtEmail1.text().isEmpty() ? txtEmail2.text() : txtEmail1.text();
    if (!endereco.isEmpty()) Escrever_Email(platform_.shell, endereco);
}

void AccoesContacto::Website_Click()
{
    if (!txtWebsite.hasSelectedText()) Visitar_Website(platform_.shell, txtWebsite.text());
}

void AccoesContacto::Linha_Click(const QLineEdit *linha)
{
    if (linha == &txtWebsite)
        Website_Click();
    else
        Escrever_Email(platform_.shell, linha->text());
}

void AccoesContacto::Thumb_Click()
{
    const DisabledWindow desactivada(janela_);
    frmVerImagem(geral_, cartao_.Image1(), &janela_).exec();
}

void AccoesContacto::cmdData_Click() { platform_.shell.openDateAndTimeSettings(); }
