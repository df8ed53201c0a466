#include "cards/ImportacaoDeContactos.h"

#include "cards/LinhaDaAgenda.h"
#include "data/CartoesGuardados.h"
#include "data/DE.h"
#include "store/Row.h"

#include <algorithm>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 fatia = 8;    // ms of work at a time
constexpr int da_agenda = 200; // rows read at a time
} // namespace

Escolha ContactoAImportar::Por_Omissao(Veredicto veredicto)
{
    switch (veredicto) {
    case Veredicto::Igual:
        return Escolha::Saltar;
    case Veredicto::Completa:
        return Escolha::Juntar;
    case Veredicto::Talvez:
    case Veredicto::Novo:
        break;
    }
    return Escolha::Novo;
}

ImportacaoDeContactos::ImportacaoDeContactos(DE &de, QString IdUtilizador, QString idioma)
    : de_(de), IdUtilizador_(std::move(IdUtilizador)), idioma_(std::move(idioma)), regra_(idioma_)
{
}

void ImportacaoDeContactos::Abrir_Cartoes(const QByteArray &bytes, const QByteArray &codificacao,
                                          GruposDaImportacao grupos)
{
    fonte_ = std::make_unique<FonteDeCartoes>(bytes, codificacao, idioma_, std::move(grupos));
}

void ImportacaoDeContactos::Abrir_Tabela(TabelaEscolhida tabela, GruposDaImportacao grupos)
{
    fonte_ = std::make_unique<FonteDeTabela>(std::move(tabela), std::move(grupos));
}

bool ImportacaoDeContactos::Avancar()
{
    QElapsedTimer relogio;
    relogio.start();
    do {
        if (!fonte_preparada_)
            Preparar();
        else if (!agenda_lida_)
            Ler_Da_Agenda();
        else if (lidos_ < fonte_->Quantos())
            Julgar(lidos_++);
        else
            return Acabar();
    } while (relogio.elapsed() < fatia);
    return true;
}

void ImportacaoDeContactos::Preparar()
{
    constexpr int parte_de_cartoes = 50;
    if (fonte_->Preparar(faltas_)) {
        parte_da_fonte_ = parte_de_cartoes;
        return;
    }
    fonte_preparada_ = true;
    contactos_.reserve(fonte_->Quantos());
    constexpr std::size_t livro_cheio = 32'767; // contacts
    regra_.Contar_Com(2 * std::min(fonte_->Quantos(), livro_cheio)); // with as many in the book
}

bool ImportacaoDeContactos::Acabar()
{
    std::stable_sort(faltas_.begin(), faltas_.end(),
                     [](const FaltaDaFonte &a, const FaltaDaFonte &b) { return a.linha < b.linha; });
    return false;
}

// How many the book has is not known before it is read; it is the quicker part.
int ImportacaoDeContactos::Percentagem() const
{
    constexpr int parte_da_agenda = 10;
    if (!fonte_preparada_) return parte_da_fonte_ * fonte_->Preparado() / 100;
    if (!agenda_lida_) return parte_da_fonte_;
    const int antes = parte_da_fonte_ + parte_da_agenda;
    const std::size_t todos = fonte_->Quantos();
    return todos == 0 ? 100
                      : antes + static_cast<int>(static_cast<std::size_t>(100 - antes) * lidos_ / todos);
}

void ImportacaoDeContactos::Ler_Da_Agenda()
{
    if (!uids_lidos_) {
        CartoesGuardados(de_).Percorrer(
            [this](const QString &IDContacto, const QString &UID) { uids_.insert(IDContacto, UID); });
        uids_lidos_ = true;
        return;
    }
    const std::size_t antes = da_agenda_.size();
    std::optional<LugaresDaAgenda> lugares;
    de_.Percorrer_A_Vista(IdUtilizador_, antes == 0 ? 0 : da_agenda_.back(), da_agenda,
                          [&](const Row &linha) {
                              if (!lugares) lugares.emplace(linha);
                              const qint64 ID = lugares->ID(linha);
                              da_agenda_.push_back(ID);
                              regra_.Juntar(lugares->Colunas(linha),
                                            uids_.isEmpty() ? QString() : uids_.value(QString::number(ID)));
                          });
    agenda_lida_ = da_agenda_.size() == antes;
}

// Who comes as somebody of his own is there for those behind, and so is what completes somebody.
void ImportacaoDeContactos::Julgar(std::size_t qual)
{
    std::optional<ContactoDaFonte> lido = fonte_->Ler(qual, faltas_);
    if (!lido) return;
    ChavesDoContacto chaves = ChavesDoContacto::De(lido->lido.colunas);
    Decisao decisao = regra_.Decidir(lido->lido.colunas, chaves, lido->UID);
    ContactoAImportar contacto{std::move(*lido), decisao.veredicto, std::move(decisao.quem)};
    contacto.escolha = ContactoAImportar::Por_Omissao(contacto.veredicto);
    if (contacto.escolha == Escolha::Novo) {
        regra_.Juntar(contacto.fonte.lido.colunas, std::move(chaves), contacto.fonte.UID);
        do_ficheiro_.push_back(contactos_.size());
    }
    if (contacto.escolha == Escolha::Juntar) {
        const std::size_t lugar = contacto.quem.front();
        por_completar_.try_emplace(lugar, regra_.Quem(lugar));
        regra_.Completar(lugar, decisao.completado);
    }
    contactos_.push_back(std::move(contacto));
}

ImportacaoDeContactos::Alguem ImportacaoDeContactos::Quem(std::size_t lugar) const
{
    if (lugar < da_agenda_.size()) return {QString::number(da_agenda_[lugar]), 0};
    return {{}, do_ficheiro_.at(lugar - da_agenda_.size())};
}

ColunasDoContacto ImportacaoDeContactos::Colunas_De(std::size_t lugar) const
{
    const auto por_completar = por_completar_.find(lugar);
    return por_completar == por_completar_.end() ? regra_.Quem(lugar) : por_completar->second;
}

Decisao ImportacaoDeContactos::Como_Fica(const ContactoAImportar &contacto) const
{
    const ColunasDoContacto &colunas = contacto.fonte.lido.colunas;
    if (contacto.escolha != Escolha::Juntar) return {contacto.veredicto, {}, colunas, {}};
    return RegraDosDuplicados::Juntos(idioma_, colunas, Colunas_De(contacto.quem.at(contacto.com)));
}
