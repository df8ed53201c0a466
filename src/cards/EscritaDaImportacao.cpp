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
    : de_(de), importacao_(importacao), pedido_(std::move(pedido))
{
}

std::optional<EscritaDaImportacao::LinhaDaAgenda> EscritaDaImportacao::Ler_Da_Agenda(const QString &ID) const
{
    std::optional<LinhaDaAgenda> lida;
    de_.Percorrer("cmdEditarNome", {ID}, [&](const Row &linha) {
        lida.emplace();
        for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i) {
            const Field celula = linha.field(linha.column(ColunasDoContacto::na_tabela[i]));
            lida->nulas[i] = celula.isNull();
            lida->colunas.valores[i] = celula.textOrEmpty();
        }
    });
    return lida;
}

// A Null that was there and gets no value stays one.
void EscritaDaImportacao::Escrever_Linha(const QString &ID, const LinhaDaAgenda &linha)
{
    const auto v = [&](std::size_t i) -> Value {
        const QString &valor = linha.colunas.valores[i];
        return linha.nulas[i] && valor.isEmpty() ? Value(nullptr) : Value(valor);
    };
    de_.Executar("cmdUpdateNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11),
                                   v(12), v(13), v(14), v(15), v(16), ID});
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
        de_.Esperar_Uma_Vez([&] { de_.Tudo_Ou_Nada([&] { Tudo(progresso); }); });
    } catch (const Cancelada &) {
        Esquecer();
        return false;
    } catch (...) {
        Esquecer();
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
}

void EscritaDaImportacao::Tudo(const Progresso &progresso)
{
    const std::size_t todos = 2 * importacao_.Contactos().size(); // to be planned and to be written
    std::size_t feitos = 0;
    const auto passo = [&] {
        if (!progresso(static_cast<int>(100 * feitos++ / todos))) throw Cancelada();
    };
    Planear(passo);
    Verificar();
    Preparar_Grupos();
    for (const Novo &novo : novos_) {
        Inserir(novo);
        passo();
    }
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
            novos_.push_back({i, contacto.fonte.lido.colunas});
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
    const std::optional<LinhaDaAgenda> linha = Ler_Da_Agenda(ID);
    if (!linha) return {};
    existente_por_ID_.insert(ID, existentes_.size());
    existentes_.push_back({ID, *linha, linha->colunas, {}, {}, {}});
    return {Destino::Existentes, existentes_.size() - 1};
}

void EscritaDaImportacao::Acrescentar(std::size_t qual, const Destino &destino)
{
    const ContactoDaFonte &fonte = importacao_.Contactos()[qual].fonte;
    ColunasDoContacto &colunas =
        destino.onde == Destino::Novos ? novos_[destino.qual].colunas : existentes_[destino.qual].colunas;
    colunas = RegraDosDuplicados::Juntos(importacao_.Idioma(), fonte.lido.colunas, colunas).completado;
    if (destino.onde == Destino::Existentes && !fonte.cartao.isEmpty())
        existentes_[destino.qual].contacto = qual;
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
    const auto v = [&](std::size_t i) -> const QString & { return novo.colunas.valores[i]; };
    de_.Executar("cmdAdicionarNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10),
                                      v(11), v(12), v(13), v(14), v(15), Grupo_De(fonte.lido.Grupo)});
    Guardar_Cartao(QString::number(++ultimo_), fonte);
    Guardar_Fotografia(v(static_cast<std::size_t>(Coluna::Fotografia)));
}

// The card that a contact came with stays, unless the same card comes anew.
void EscritaDaImportacao::Actualizar(Existente &existente)
{
    Escrever_Linha(existente.ID, {existente.colunas, existente.antes.nulas});
    if (existente.colunas[Coluna::Fotografia] != existente.antes.colunas[Coluna::Fotografia])
        Guardar_Fotografia(existente.colunas[Coluna::Fotografia]);
    if (!existente.contacto) return;
    const ContactoDaFonte &fonte = importacao_.Contactos()[*existente.contacto].fonte;
    const std::optional<CartaoGuardado> antes = CartoesGuardados(de_).Ler(existente.ID);
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

void EscritaDaImportacao::Anular()
{
    de_.Tudo_Ou_Nada([this] {
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
    Escrever_Linha(existente.ID, *linha);
    if (!existente.contacto) return;
    if (existente.tinha_cartao)
        CartoesGuardados(de_).Guardar({existente.ID, existente.uid_antes, existente.cartao_antes});
    else
        CartoesGuardados(de_).Eliminar(existente.ID);
}
