#include "interchange/FonteDeContactos.h"

#include "interchange/NumeroDoCartao.h"
#include "vcard/CardContent.h"
#include "vcard/CardGroups.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QStringDecoder>
#include <QUtf8StringView>

using namespace Qt::StringLiterals;

namespace
{
using Que = FaltaDaFonte::Que;

Que Falta_Do_Leitor(CardFault::Kind especie)
{
    switch (especie) {
    case CardFault::Kind::PropertyTooLong:
        return Que::ValorGrande;
    case CardFault::Kind::TooManyProperties:
        return Que::PropriedadesDemais;
    case CardFault::Kind::EndMissing:
        return Que::SemFim;
    case CardFault::Kind::OutsideOfCard:
        return Que::ForaDeCartao;
    case CardFault::Kind::NothingInIt:
        break;
    }
    return Que::Vazio;
}

bool Diz_A_Especie(const Card &cartao)
{
    return cartao.first("KIND") != nullptr || cartao.first("X-ADDRESSBOOKSERVER-KIND") != nullptr;
}

// A contact needs a name: who has none is called by the first that is known.
bool Dar_Nome(ContactoLido &lido)
{
    QString &nome = lido.colunas[Coluna::Nome];
    for (const Coluna coluna : {Coluna::Email1, Coluna::Telemovel1, Coluna::Telefone1, Coluna::Fax,
                                Coluna::Website, Coluna::Morada, Coluna::Obs}) {
        if (!nome.isEmpty()) break;
        const QString linha = lido.colunas[coluna].section(u'\n', 0, 0).simplified();
        nome = Cortado(linha, ColunasDoContacto::maior_nome);
    }
    return !nome.isEmpty();
}

// A zero would end a text in the store.
void Sem_Zeros(ContactoLido &lido)
{
    for (QString &valor : lido.colunas.valores)
        valor.remove(QChar(u'\0'));
    lido.Grupo.remove(QChar(u'\0'));
}

// False for one that holds nobody.
bool Acabar(ContactoDaFonte &contacto, std::vector<FaltaDaFonte> &faltas)
{
    ContactoLido &lido = contacto.lido;
    Sem_Zeros(lido);
    for (qsizetype i = 0; i < lido.problemas.size(); ++i)
        faltas.push_back({contacto.linha, Que::Fotografia, {}});
    return Dar_Nome(lido);
}
} // namespace

FonteDeCartoes::FonteDeCartoes(const QByteArray &bytes, const QByteArray &codificacao, const QString &idioma,
                               GruposDaImportacao grupos, std::vector<FaltaDaFonte> &faltas)
    : codificacao_(codificacao), regras_(idioma, std::move(grupos))
{
    CardFile ficheiro = CardReader(codificacao).read(bytes);
    cartoes_ = std::move(ficheiro.cards);
    for (const CardFault &falta : ficheiro.faults) {
        if (falta.kind == CardFault::Kind::NothingInIt) vazios_.insert(falta.line);
        faltas.push_back({falta.line, Falta_Do_Leitor(falta.kind), {}});
    }
    std::vector<CardContent> que_podem_ser_grupos;
    for (const Card &cartao : cartoes_)
        if (Diz_A_Especie(cartao)) que_podem_ser_grupos.push_back(contentOf(cartao));
    grupos_do_ficheiro_ = groupsByMember(que_podem_ser_grupos);
}

// The card is not needed any more afterwards: of a large book only what the form shows stays in memory.
std::optional<ContactoDaFonte> FonteDeCartoes::Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas)
{
    const Card cartao = std::move(cartoes_.at(qual));
    if (Diz_A_Especie(cartao) && contentOf(cartao).isGroup) return {};
    const CardProperty *uid = cartao.first("UID");
    ContactoDaFonte contacto{{}, uid == nullptr ? QString() : uid->text().trimmed(), {}, cartao.line()};
    contacto.lido = regras_.Ler(cartao, grupos_do_ficheiro_.value(plainUid(contacto.UID)));
    contacto.lido.Fotografia.clear();
    if (!Acabar(contacto, faltas)) {
        if (!vazios_.contains(contacto.linha)) faltas.push_back({contacto.linha, Que::Vazio, {}});
        return {};
    }
    contacto.cartao = Guardavel(cartao.source());
    return contacto;
}

// What a person knows of the encoding a later reading of the card would have to guess.
QByteArray FonteDeCartoes::Guardavel(const QByteArray &cartao) const
{
    if (codificacao_.isEmpty() || QUtf8StringView(cartao).isValidUtf8()) return cartao;
    QStringDecoder descodificar(codificacao_.constData());
    const QString texto = descodificar.isValid() ? QString(descodificar(cartao)) : QString();
    return descodificar.hasError() || texto.isEmpty() ? cartao : texto.toUtf8();
}

FonteDeTabela::FonteDeTabela(TabelaEscolhida tabela, GruposDaImportacao grupos)
    : primeira_(tabela.tabela.hasHeader ? 2 : 1),
      linhas_(std::move(tabela.tabela), std::move(tabela.mapa), [&] {
          tabela.opcoes.grupos = std::move(grupos);
          return std::move(tabela.opcoes);
      }())
{
}

std::optional<ContactoDaFonte> FonteDeTabela::Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas)
{
    ContactoDaLinha linha = linhas_.Ler(qual);
    ContactoDaFonte contacto{std::move(linha.lido), {}, {}, primeira_ + static_cast<qsizetype>(qual)};
    for (const QString &numero : linha.estragados)
        faltas.push_back({contacto.linha, Que::NumeroEstragado, numero});
    if (Acabar(contacto, faltas)) return contacto;
    faltas.push_back({contacto.linha, Que::Vazio, {}});
    return {};
}

QByteArray Fotografia_Do_Cartao(const QByteArray &cartao, const QString &nome)
{
    const CardFile ficheiro = CardReader().read(cartao);
    if (ficheiro.cards.empty()) return {};
    for (const CardPhoto &fotografia : contentOf(ficheiro.cards.front()).photos) {
        const QByteArray soma = QCryptographicHash::hash(fotografia.bytes, QCryptographicHash::Sha1).toHex();
        if (nome.startsWith(u"bd:"_s + QString::fromLatin1(soma) + u'.')) return fotografia.bytes;
    }
    return {};
}
