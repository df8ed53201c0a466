#include "interchange/SaidaDeContactos.h"

#include "controls/DisabledWindow.h"
#include "controls/ListBox.h"
#include "data/Geral.h"
#include "interchange/ConteudoDoQR.h"
#include "interchange/frmExportarContactos.h"
#include "interchange/frmQR.h"
#include "janela/Janela.h"
#include "platform/Platform.h"
#include "vcard/CardContent.h"
#include "vcard/CardReader.h"

#include <memory>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace
{
// For a program that knows no cards: the name, and how the contact is reached.
QString Em_Linhas(const ColunasDoContacto &colunas)
{
    QStringList linhas{colunas[Coluna::Nome]};
    for (const Coluna numero : ColunasDoContacto::numeros)
        linhas << colunas[numero];
    for (const Coluna email : ColunasDoContacto::emails)
        linhas << colunas[email];
    linhas.removeAll(QString());
    return linhas.join(u'\n');
}
} // namespace

SaidaDeContactos::SaidaDeContactos(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela), janela_(janela), geral_(geral), platform_(platform)
{
    connect(janela.ExportarContactos, &QAction::triggered, this, &SaidaDeContactos::ExportarContactos_Click);
    connect(janela.RightClickCopiarCartao, &QAction::triggered, this,
            &SaidaDeContactos::RightClickCopiarCartao_Click);
    connect(janela.RightClickQR, &QAction::triggered, this, &SaidaDeContactos::RightClickQR_Click);
}

void SaidaDeContactos::ExportarContactos_Click()
{
    const DisabledWindow desactivada(janela_);
    frmExportarContactos(janela_, geral_, platform_, &janela_).exec();
}

// Another copy of the program may have taken it away since it was selected.
std::optional<SaidaDeContactos::Escolhido> SaidaDeContactos::Ler_Escolhido(CartoesDeSaida::Opcoes opcoes)
{
    const ContactosVisiveis visiveis(geral_);
    std::optional<ContactoDoLivro> livro;
    if (janela_.ListaNomes->ListIndex() >= 0) livro = visiveis.Ler(geral_.IDContacto);
    if (livro)
        return Escolhido{livro->contacto.colunas,
                         CartoesDeSaida(geral_, visiveis.Grupos(), opcoes).Escrever(*livro)};
    platform_.boxes.show(geral_.Ler_Idioma(165) + u"\r\n"_s + geral_.Ler_Idioma(166), box::stop,
                         janela_.windowTitle(), &janela_);
    return {};
}

void SaidaDeContactos::RightClickCopiarCartao_Click()
{
    const auto escolhido = Ler_Escolhido({});
    if (!escolhido) return;
    auto dados = std::make_unique<QMimeData>();
    dados->setData(u"text/vcard"_s, escolhido->cartao);
    dados->setText(Em_Linhas(escolhido->colunas));
    QGuiApplication::clipboard()->setMimeData(dados.release());
}

void SaidaDeContactos::RightClickQR_Click()
{
    const auto escolhido = Ler_Escolhido({CardVersion::V30, false, false});
    if (!escolhido) return;
    const CardFile ficheiro = CardReader().read(escolhido->cartao);
    const DisabledWindow desactivada(janela_);
    frmQR(geral_, Conteudo_Do_QR(contentOf(ficheiro.cards.front())), escolhido->colunas[Coluna::Nome],
          &janela_)
        .exec();
}
