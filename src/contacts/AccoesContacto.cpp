#include "contacts/AccoesContacto.h"

#include "contacts/CartaoContacto.h"
#include "contacts/frmEmail.h"
#include "contacts/frmVerImagem.h"
#include "contacts/LinhasLink.h"
#include "contacts/ListaContactos.h"
#include "contacts/WebsiteEmail.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "controls/Controls.h"
#include "controls/DisabledWindow.h"
#include "controls/ListBox.h"
#include "controls/PictureLabel.h"
#include "platform/Platform.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_deseja_eliminar = 54;
} // namespace

AccoesContacto::AccoesContacto(QWidget &janela, Geral &geral, Platform &platform, ListaContactos &lista,
                               CartaoContacto &cartao)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      cartao_(cartao),
      janela_(janela),
      ListaNomes(control<ListBox>(janela, u"ListaNomes"_s)),
      txtEmail1(control<QLineEdit>(janela, u"txtEmail1"_s)),
      txtEmail2(control<QLineEdit>(janela, u"txtEmail2"_s)),
      txtWebsite(control<QLineEdit>(janela, u"txtWebsite"_s))
{
    const auto clique = [&](const QString &botao, auto accao) {
        connect(&control<QAbstractButton>(janela, botao), &QAbstractButton::clicked, this, accao);
    };
    clique(u"cmdEliminar"_s, &AccoesContacto::cmdEliminar_Click);
    clique(u"cmdData"_s, &AccoesContacto::cmdData_Click);
    // Every other way presses the button, so a disabled one bars them all.
    for (const auto &comando : {u"EliminarContacto"_s, u"eliminar_contacto"_s, u"RightClickEliminar"_s})
        connect(&control<QAction>(janela, comando), &QAction::triggered,
                &control<QAbstractButton>(janela, u"cmdEliminar"_s), &QAbstractButton::click);
    for (const auto &comando : {u"Email"_s, u"enviar_email"_s, u"RightClickEmail"_s})
        Ligar(comando, &AccoesContacto::Email_Click);
    for (const auto &comando : {u"Website"_s, u"visitar_website"_s, u"RightClickWebsite"_s})
        Ligar(comando, &AccoesContacto::Website_Click);
    connect(new LinhasLink(janela, geral), &LinhasLink::Clicada, this, &AccoesContacto::Linha_Click);
    connect(&control<PictureLabel>(janela, u"Thumb"_s), &PictureLabel::Click, this,
            &AccoesContacto::Thumb_Click);
}

void AccoesContacto::Ligar(const QString &comando, void (AccoesContacto::*accao)())
{
    connect(&control<QAction>(janela_, comando), &QAction::triggered, this, accao);
}

// The selection is lost, and the card stays empty unless one contact remains.
void AccoesContacto::cmdEliminar_Click()
{
    const int linha = geral_.IndiceContacto; // question and deed are about one row
    if (!Tem_Direito(geral_.SessaoActual.Eliminar, geral_, platform_, &janela_) || !Confirma_Eliminar(linha))
        return;
    geral_.de.Executar("cmdEliminarNome", {QString::number(ListaNomes.ItemData(linha))});
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
