#include "cards/CartoesDeSaida.h"

#include "cards/ContactosVisiveis.h"
#include "cards/FotografiaDoCartao.h"
#include "contacts/Fotografia.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "vcard/CardInVersion.h"
#include "vcard/CardPatch.h"
#include "vcard/CardReader.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace
{
// What a reader takes of one property, before it is written in base64.
constexpr qint64 maior_fotografia = 11LL * 1024 * 1024;

// A pipe or a device of that name would never end.
QByteArray Ler_Ficheiro(const QString &caminho)
{
    const QFileInfo info(caminho);
    if (!info.isFile() || info.size() > maior_fotografia) return {};
    QFile ficheiro(caminho);
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.read(maior_fotografia) : QByteArray();
}

Card Lido(const QByteArray &cartao) { return CardReader().read(cartao).cards.front(); }

QByteArray Sem_Fotografias(const QByteArray &cartao)
{
    const Card lido = Lido(cartao);
    return patchedCard(lido, lido.all("PHOTO"), {});
}
} // namespace

CartoesDeSaida::CartoesDeSaida(Geral &geral, const QStringList &grupos, Opcoes opcoes)
    : geral_(geral),
      guardados_(geral.de),
      fotografias_(geral.de),
      cartao_(geral.IdiomaActual, opcoes.versao, grupos),
      opcoes_(opcoes),
      lembra_(opcoes.com_uid && skipFailure([&geral] { geral.de.Experimentar_Escrita(); }))
{
}

QString CartoesDeSaida::UID(int ID, const std::optional<CartaoGuardado> &guardado)
{
    if (guardado && !guardado->UID.isEmpty()) return guardado->UID;
    if (!lembra_) return {};
    QString novo = QUuid::createUuid().toString(QUuid::WithoutBraces);
    guardados_.Guardar({QString::number(ID), novo, guardado ? guardado->cartao : QByteArray()});
    return novo;
}

// As it lies there, be it a picture or not.
QByteArray CartoesDeSaida::Fotografia(const QString &coluna)
{
    if (!opcoes_.com_fotografias || coluna.isEmpty()) return {};
    return E_Da_Base(coluna) ? fotografias_.Ler(coluna) : Ler_Ficheiro(Caminho_Da_Fotografia(geral_, coluna));
}

QByteArray CartoesDeSaida::Cartao(const ContactoParaCartao &contacto, const QByteArray &guardado) const
{
    if (guardado.isEmpty()) return cartao_.Novo(contacto);
    QByteArray remendado = cartao_.Remendado(contacto, guardado);
    if (opcoes_.na_do_guardado && opcoes_.com_fotografias) return remendado;
    return inVersion(Lido(opcoes_.com_fotografias ? remendado : Sem_Fotografias(remendado)), opcoes_.versao);
}

QByteArray CartoesDeSaida::Escrever(const ContactoDoLivro &livro)
{
    const std::optional<CartaoGuardado> guardado = guardados_.Ler(QString::number(livro.ID));
    const QString &coluna = livro.contacto.colunas[Coluna::Fotografia];
    ContactoParaCartao contacto = livro.contacto;
    contacto.UID = UID(livro.ID, guardado);
    contacto.Fotografia = Fotografia(coluna);
    QByteArray cartao = Cartao(contacto, guardado ? guardado->cartao : QByteArray());
    if (opcoes_.com_fotografias && !coluna.isEmpty() && Lido(cartao).first("PHOTO") == nullptr)
        ++fotografias_de_fora_;
    return cartao;
}
