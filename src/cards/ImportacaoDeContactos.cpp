#include "cards/ImportacaoDeContactos.h"

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

using LugaresNaLinha = std::array<int, ColunasDoContacto::quantas>;

LugaresNaLinha Lugares_Na_Linha(const Row &linha)
{
    LugaresNaLinha lugares{};
    std::transform(ColunasDoContacto::na_tabela.begin(), ColunasDoContacto::na_tabela.end(), lugares.begin(),
                   [&](const char *nome) { return linha.column(nome); });
    return lugares;
}

ColunasDoContacto Colunas_Da_Linha(const Row &linha, const LugaresNaLinha &lugares)
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < lugares.size(); ++i) {
        const std::string_view valor = linha.utf8(lugares[i]);
        colunas.valores[i] = QString::fromUtf8(valor.data(), static_cast<qsizetype>(valor.size()));
    }
    return colunas;
}
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
    fonte_ = std::make_unique<FonteDeCartoes>(bytes, codificacao, idioma_, std::move(grupos), faltas_);
    contactos_.reserve(fonte_->Quantos());
    regra_.Contar_Com(2 * fonte_->Quantos()); // with as many in the book
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
        if (!agenda_lida_)
            Ler_Da_Agenda();
        else if (lidos_ < fonte_->Quantos())
            Julgar(lidos_++);
        else
            return Acabar();
    } while (relogio.elapsed() < fatia);
    return true;
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
    constexpr std::size_t parte_da_agenda = 10;
    if (!agenda_lida_) return 0;
    const std::size_t todos = fonte_->Quantos();
    return todos == 0 ? 100 : static_cast<int>(parte_da_agenda + (100 - parte_da_agenda) * lidos_ / todos);
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
    LugaresNaLinha lugares{};
    int do_ID = 0;
    de_.Percorrer_A_Vista(IdUtilizador_, antes == 0 ? 0 : da_agenda_.back(), da_agenda,
                          [&](const Row &linha) {
                              if (da_agenda_.size() == antes) {
                                  lugares = Lugares_Na_Linha(linha);
                                  do_ID = linha.column("ID");
                              }
                              const qint64 ID = linha.number(do_ID);
                              da_agenda_.push_back(ID);
                              regra_.Juntar(Colunas_Da_Linha(linha, lugares),
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
        if (!por_completar_.contains(lugar)) por_completar_.insert(lugar, regra_.Quem(lugar));
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
    return por_completar_.value(lugar, regra_.Quem(lugar));
}

Decisao ImportacaoDeContactos::Como_Fica(const ContactoAImportar &contacto) const
{
    const ColunasDoContacto &colunas = contacto.fonte.lido.colunas;
    if (contacto.escolha != Escolha::Juntar) return {contacto.veredicto, {}, colunas, {}};
    return RegraDosDuplicados::Juntos(idioma_, colunas, Colunas_De(contacto.quem.at(contacto.com)));
}
