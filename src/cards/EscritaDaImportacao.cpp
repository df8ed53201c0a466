#include "cards/EscritaDaImportacao.h"

#include "cards/NomeDobrado.h"
#include "cards/NumeroDoCartao.h"
#include "data/CartoesGuardados.h"
#include "data/DE.h"
#include "data/Fotografias.h"
#include "platform/Failure.h"
#include "store/Row.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 maior_ID = std::numeric_limits<qint16>::max(); // a contact of a higher one can't be opened
constexpr qsizetype maior_grupo = 50;                           // characters of a name
constexpr std::string_view lista = "TblLista";
constexpr std::string_view tabela_dos_grupos = "TblGrupos";

struct Cancelada : std::exception {
};
} // namespace

EscritaDaImportacao::EscritaDaImportacao(DE &de, const ImportacaoDeContactos &importacao, Pedido pedido)
    : de_(de), importacao_(importacao), pedido_(std::move(pedido)), escrita_(de), anulacao_(de)
{
}

std::optional<LinhaDaAgenda> EscritaDaImportacao::Ler_Da_Agenda(const QString &ID)
{
    std::optional<LinhaDaAgenda> lida;
    de_.Percorrer("cmdEditarNome", {ID}, [&](const Row &linha) {
        if (!lugares_) lugares_.emplace(linha);
        lida = lugares_->Linha(linha);
    });
    return lida;
}

EscritaDaImportacao::Contagem EscritaDaImportacao::Prevista() const
{
    Contagem contagem;
    for (const ContactoAImportar &contacto : importacao_.Contactos())
        ++(contacto.escolha == Escolha::Novo     ? contagem.adicionados
           : contacto.escolha == Escolha::Juntar ? contagem.completados
                                                 : contagem.saltados);
    return contagem;
}

bool EscritaDaImportacao::Escrever(const Progresso &progresso)
{
    try {
        de_.Esperar_Uma_Vez([&] {
            escrita_.Correr([&] {
                Esquecer();
                Tudo(progresso);
            });
        });
    } catch (const Cancelada &) {
        Esquecer();
        return false;
    } catch (...) {
        if (!Em_Duvida()) Esquecer();
        throw;
    }
    return true;
}

void EscritaDaImportacao::Esquecer()
{
    contagem_ = {};
    novos_.clear();
    existentes_.clear();
    existente_por_ID_.clear();
    fotografias_.clear();
    grupos_.clear();
    grupos_criados_.clear();
    nomes_dos_grupos_.clear();
    fotografias_novas_.clear();
    lugares_.reset();
    com_cartao_.clear();
}

void EscritaDaImportacao::Tudo(const Progresso &progresso)
{
    const std::size_t todos = 2 * importacao_.Contactos().size(); // to be planned and to be written
    std::size_t feitos = 0;
    const auto olhar = [&] {
        if (!progresso(static_cast<int>(100 * feitos / todos))) throw Cancelada();
    };
    const auto passo = [&] {
        olhar();
        ++feitos;
    };
    Tomar_Existentes(olhar);
    Planear(passo);
    Verificar();
    Preparar_Grupos();
    for (const Novo &novo : novos_) {
        Inserir(novo);
        passo();
    }
    if (!existentes_.empty()) // asked for one by one they cost as much as writing them
        CartoesGuardados(de_).Percorrer(
            [this](const QString &IDContacto, const QString &) { com_cartao_.insert(IDContacto); });
    for (Existente &existente : existentes_) {
        Actualizar(existente);
        passo();
    }
    if (de_.Ultimo_ID(lista) != ultimo_)
        throw Failure(Failure::StoreError, QString::fromLatin1(lista),
                      u"The numbers of the rows have jumped"_s);
}

// Nobody else writes by now: the book is asked once more how those are that are completed.
void EscritaDaImportacao::Planear(const std::function<void()> &passo)
{
    const std::vector<ContactoAImportar> &contactos = importacao_.Contactos();
    std::vector<Destino> destinos(contactos.size());
    for (std::size_t i = 0; i < contactos.size(); ++i) {
        const ContactoAImportar &contacto = contactos[i];
        passo();
        if (contacto.escolha == Escolha::Saltar) {
            ++contagem_.saltados;
            continue;
        }
        const QString &fotografia = contacto.fonte.lido.colunas[Coluna::Fotografia];
        if (!fotografia.isEmpty() && !fotografias_.contains(fotografia)) fotografias_.insert(fotografia, i);
        destinos[i] = Destino_De(contacto, destinos);
        if (destinos[i].onde == Destino::Nenhum) {
            destinos[i] = {Destino::Novos, novos_.size()};
            novos_.push_back({i, nullptr});
            ++contagem_.adicionados;
        } else {
            Acrescentar(i, destinos[i]);
            ++contagem_.completados;
        }
    }
}

// Who would complete somebody that does not come, or has gone meanwhile, comes as a contact of his own.
EscritaDaImportacao::Destino EscritaDaImportacao::Destino_De(const ContactoAImportar &contacto,
                                                             const std::vector<Destino> &destinos)
{
    if (contacto.escolha != Escolha::Juntar) return {};
    const ImportacaoDeContactos::Alguem alguem = importacao_.Quem(contacto.quem.at(contacto.com));
    return alguem.ID.isEmpty() ? destinos.at(alguem.contacto) : Existente_Com(alguem.ID);
}

EscritaDaImportacao::Destino EscritaDaImportacao::Existente_Com(const QString &ID)
{
    const auto achado = existente_por_ID_.constFind(ID);
    if (achado != existente_por_ID_.constEnd()) return {Destino::Existentes, *achado};
    std::optional<LinhaDaAgenda> linha = Ler_Da_Agenda(ID);
    if (!linha) return {};
    return Tomar(ID, *std::move(linha));
}

EscritaDaImportacao::Destino EscritaDaImportacao::Tomar(const QString &ID, LinhaDaAgenda linha)
{
    existente_por_ID_.insert(ID, existentes_.size());
    ColunasDoContacto colunas = linha.colunas;
    existentes_.push_back({ID, std::move(linha), std::move(colunas), {}, {}, {}, false});
    return {Destino::Existentes, existentes_.size() - 1};
}

// Many rows are read in one walk over the book, which costs a fraction of asking for each. Those that the
// user does not see any more are left to be asked for.
void EscritaDaImportacao::Tomar_Existentes(const std::function<void()> &olhar)
{
    constexpr qsizetype muitos = 100;
    constexpr int de_uma_vez = 1000;
    const Contagem prevista = Prevista();
    novos_.reserve(static_cast<std::size_t>(prevista.adicionados));
    existentes_.reserve(static_cast<std::size_t>(prevista.completados));
    existente_por_ID_.reserve(prevista.completados);
    QSet<qint64> IDs;
    for (const ContactoAImportar &contacto : importacao_.Contactos())
        if (contacto.escolha == Escolha::Juntar)
            IDs.insert(importacao_.Quem(contacto.quem.at(contacto.com)).ID.toLongLong());
    if (IDs.size() < muitos) return;
    std::optional<LugaresDaAgenda> lugares;
    qint64 ultimo = 0;
    int lidas = de_uma_vez;
    while (lidas == de_uma_vez) {
        olhar();
        lidas = 0;
        de_.Percorrer_A_Vista(pedido_.IdUtilizador, ultimo, de_uma_vez, [&](const Row &linha) {
            if (!lugares) lugares.emplace(linha);
            ++lidas;
            ultimo = lugares->ID(linha);
            if (IDs.contains(ultimo)) Tomar(QString::number(ultimo), lugares->Linha(linha));
        });
    }
}

void EscritaDaImportacao::Acrescentar(std::size_t qual, const Destino &destino)
{
    const ContactoDaFonte &fonte = importacao_.Contactos()[qual].fonte;
    const auto completar = [&](const ColunasDoContacto &outro) {
        return RegraDosDuplicados::Juntos(importacao_.Idioma(), fonte.lido.colunas, outro).completado;
    };
    if (destino.onde == Destino::Novos) {
        Novo &novo = novos_[destino.qual];
        novo.completado = std::make_unique<ColunasDoContacto>(completar(Colunas_De(novo)));
        return;
    }
    Existente &existente = existentes_[destino.qual];
    existente.colunas = completar(existente.colunas);
    if (!fonte.cartao.isEmpty()) existente.contacto = qual;
}

const ColunasDoContacto &EscritaDaImportacao::Colunas_De(const Novo &novo) const
{
    return novo.completado ? *novo.completado : importacao_.Contactos()[novo.contacto].fonte.lido.colunas;
}

void EscritaDaImportacao::Verificar()
{
    ultimo_antes_ = de_.Ultimo_ID(lista);
    ultimo_ = ultimo_antes_ + static_cast<qint64>(novos_.size());
    if (!novos_.empty() && ultimo_ > maior_ID) throw NaoCabem(std::max<qint64>(0, maior_ID - ultimo_antes_));
    if (!novos_.empty() && de_.Ler_Inteiras(tabela_dos_grupos, "ID", pedido_.IDGrupo).empty())
        throw GrupoDesaparecido();
}

void EscritaDaImportacao::Preparar_Grupos()
{
    Recordset &rs = de_.Abrir("cmdListarGrupos", {pedido_.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        grupos_.insert(Nome_Dobrado(rs.Fields("NomeGrupo").textOrEmpty()), rs.Fields("ID").text());
    rs.Close();
    ultimo_grupo_antes_ = de_.Ultimo_ID(tabela_dos_grupos);
    ultimo_ = ultimo_antes_;
}

// A new group is that user's own: who brings a private address book in shows it to nobody.
QString EscritaDaImportacao::Grupo_De(const QString &nome)
{
    const QString dobrado = Nome_Dobrado(nome);
    if (dobrado.isEmpty()) return pedido_.IDGrupo;
    const auto achado = grupos_.constFind(dobrado);
    if (achado != grupos_.constEnd()) return *achado;
    if (!pedido_.criar_grupos) return pedido_.IDGrupo;
    const QString cortado = Cortado(nome.simplified(), maior_grupo);
    de_.Executar("cmdInserirGrupo", {cortado, pedido_.IdUtilizador});
    QString ID = QString::number(de_.Ultimo_ID(tabela_dos_grupos));
    grupos_.insert(dobrado, ID);
    grupos_criados_ << ID;
    nomes_dos_grupos_ << cortado;
    return ID;
}

void EscritaDaImportacao::Inserir(const Novo &novo)
{
    const ContactoDaFonte &fonte = importacao_.Contactos()[novo.contacto].fonte;
    const ColunasDoContacto &colunas = Colunas_De(novo);
    const auto v = [&](std::size_t i) -> const QString & { return colunas.valores[i]; };
    de_.Executar("cmdAdicionarNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10),
                                      v(11), v(12), v(13), v(14), v(15), Grupo_De(fonte.lido.Grupo)});
    Guardar_Cartao(QString::number(++ultimo_), fonte);
    Guardar_Fotografia(v(static_cast<std::size_t>(Coluna::Fotografia)));
}

// The card that a contact came with stays, unless the same card comes anew.
void EscritaDaImportacao::Actualizar(Existente &existente)
{
    linha_da_agenda::Escrever(de_, existente.ID, {existente.colunas, existente.antes.nulas});
    if (existente.colunas[Coluna::Fotografia] != existente.antes.colunas[Coluna::Fotografia])
        Guardar_Fotografia(existente.colunas[Coluna::Fotografia]);
    if (!existente.contacto) return;
    const ContactoDaFonte &fonte = importacao_.Contactos()[*existente.contacto].fonte;
    std::optional<CartaoGuardado> antes;
    if (com_cartao_.contains(existente.ID)) antes = CartoesGuardados(de_).Ler(existente.ID);
    existente.tinha_cartao = antes.has_value();
    if (antes) {
        existente.cartao_antes = antes->cartao;
        existente.uid_antes = antes->UID;
        if (antes->UID.isEmpty() || antes->UID != fonte.UID) existente.contacto.reset();
    }
    if (existente.contacto) Guardar_Cartao(existente.ID, fonte);
}

void EscritaDaImportacao::Guardar_Cartao(const QString &ID, const ContactoDaFonte &fonte)
{
    if (!fonte.cartao.isEmpty()) CartoesGuardados(de_).Guardar({ID, fonte.UID, fonte.cartao});
}

void EscritaDaImportacao::Guardar_Fotografia(const QString &nome)
{
    const auto de_quem = fotografias_.constFind(nome);
    if (de_quem == fotografias_.constEnd() || fotografias_novas_.contains(nome)) return;
    FotografiasDaBase fotografias(de_);
    if (!fotografias.Ler(nome).isEmpty()) return;
    const QByteArray &cartao = importacao_.Contactos()[*de_quem].fonte.cartao;
    fotografias.Guardar(nome, Fotografia_Do_Cartao(cartao, nome));
    fotografias_novas_.insert(nome);
}

// Never twice: by then the numbers may be somebody else's.
void EscritaDaImportacao::Anular()
{
    anulacao_.Correr([this] {
        for (qint64 ID = ultimo_antes_ + 1; ID <= ultimo_; ++ID) {
            de_.Executar("cmdEliminarNome", {QString::number(ID)});
            CartoesGuardados(de_).Eliminar(QString::number(ID));
        }
        for (const Existente &existente : existentes_)
            Repor(existente);
        for (const QString &ID : grupos_criados_)
            if (de_.Ler_Inteiras(lista, "Grupo", ID).empty()) de_.Executar("cmdDeleteGroup", {ID});
        de_.Largar_Fotografias(fotografias_novas_);
        // A book that lost its numbers to imports that were taken back would be full before its time.
        if (de_.Ultimo_ID(lista) == ultimo_) de_.Recuar_ID(lista, ultimo_antes_);
    });
}

void EscritaDaImportacao::Repor(const Existente &existente)
{
    std::optional<LinhaDaAgenda> linha = Ler_Da_Agenda(existente.ID);
    if (!linha) return;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i) {
        if (linha->colunas.valores[i] != existente.colunas.valores[i]) continue;
        linha->colunas.valores[i] = existente.antes.colunas.valores[i];
        linha->nulas[i] = existente.antes.nulas[i];
    }
    linha_da_agenda::Escrever(de_, existente.ID, *linha);
    if (!existente.contacto) return;
    if (existente.tinha_cartao)
        CartoesGuardados(de_).Guardar({existente.ID, existente.uid_antes, existente.cartao_antes});
    else
        CartoesGuardados(de_).Eliminar(existente.ID);
}
