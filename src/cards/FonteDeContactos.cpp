#include "cards/FonteDeContactos.h"

#include "cards/NumeroDoCartao.h"
#include "platform/TextEncoding.h"
#include "vcard/CardContent.h"
#include "vcard/CardGroups.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QUtf8StringView>
#include <utility>

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

constexpr qsizetype bytes_de_uma_vez = qsizetype{32} * 1024; // of a file of cards

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
        if (!valor.isEmpty()) valor.remove(QChar(u'\0'));
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
                               GruposDaImportacao grupos)
    : codificacao_(codificacao),
      leitura_(std::in_place, bytes, codificacao),
      regras_(idioma, std::move(grupos))
{
}

// A card is mapped as soon as it is read, while its pieces are at hand; of a large book only what the form
// shows stays in memory.
bool FonteDeCartoes::Preparar(std::vector<FaltaDaFonte> &faltas)
{
    if (!por_tomar_.empty()) { // one at a time: its picture may take a while
        Tomar(por_tomar_.back());
        por_tomar_.pop_back();
        return true;
    }
    if (!leitura_) {
        grupos_do_ficheiro_ = groupsByMember(std::exchange(grupos_, {}));
        return false;
    }
    if (leitura_->advance(bytes_de_uma_vez)) {
        por_tomar_ = leitura_->takeWhole();
    } else {
        CardFile resto = leitura_->take();
        por_tomar_ = std::move(resto.cards);
        for (const CardFault &falta : resto.faults) {
            if (falta.kind == CardFault::Kind::NothingInIt) vazios_.insert(falta.line);
            faltas.push_back({falta.line, Falta_Do_Leitor(falta.kind), {}});
        }
        leitura_.reset();
    }
    std::reverse(por_tomar_.begin(), por_tomar_.end());
    return true;
}

void FonteDeCartoes::Tomar(const Card &cartao)
{
    Lido &lido = lidos_.emplace_back();
    CardContent conteudo = contentOf(cartao);
    lido.e_grupo = conteudo.isGroup;
    if (conteudo.isGroup) {
        grupos_.push_back(std::move(conteudo));
        return;
    }
    lido.contacto = {regras_.Ler(cartao, conteudo, {}), conteudo.uid.value_or(QString()), cartao.source(),
                     cartao.line()};
    lido.contacto.lido.Fotografia.clear();
}

// Which groups the file has is known only when all of it is read, and few of its people are in one: their
// cards are read once more.
void FonteDeCartoes::Juntar_Os_Grupos(ContactoDaFonte &contacto) const
{
    if (grupos_do_ficheiro_.isEmpty()) return;
    const QStringList grupos = grupos_do_ficheiro_.value(plainUid(contacto.UID));
    if (grupos.isEmpty()) return;
    const CardFile ficheiro = CardReader(codificacao_).read(contacto.cartao);
    if (ficheiro.cards.empty()) return;
    contacto.lido = regras_.Ler(ficheiro.cards.front(), grupos);
    contacto.lido.Fotografia.clear();
}

std::optional<ContactoDaFonte> FonteDeCartoes::Ler(std::size_t qual, std::vector<FaltaDaFonte> &faltas)
{
    Lido lido = std::move(lidos_.at(qual));
    ContactoDaFonte &contacto = lido.contacto;
    if (lido.e_grupo) return {};
    Juntar_Os_Grupos(contacto);
    if (!Acabar(contacto, faltas)) {
        if (!vazios_.contains(contacto.linha)) faltas.push_back({contacto.linha, Que::Vazio, {}});
        return {};
    }
    contacto.cartao = Guardavel(contacto.cartao);
    return std::move(contacto);
}

// What a person knows of the encoding a later reading of the card would have to guess.
QByteArray FonteDeCartoes::Guardavel(const QByteArray &cartao) const
{
    if (codificacao_.isEmpty() || QUtf8StringView(cartao).isValidUtf8()) return cartao;
    const DecodedText lido = decodedText(cartao, codificacao_);
    return !lido.sound || lido.text.isEmpty() ? cartao : lido.text.toUtf8();
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
