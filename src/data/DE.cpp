#include "data/DE.h"

#include "data/CopiaParaFicheiro.h"
#include "data/Esquema.h"
#include "data/IndicesDoLivro.h"
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "store/CleanCopy.h"

#include <algorithm>
#include <utility>

namespace
{
ColumnType Tipo_Do_Parametro(std::string_view tabela, std::string_view coluna)
{
    return coluna.starts_with('~') ? ColumnType::Pattern : esquema::Tipo(tabela, coluna);
}

std::vector<std::string_view> Colunas(std::string_view parametros)
{
    std::vector<std::string_view> colunas;
    while (!parametros.empty()) {
        const std::size_t fim = std::min(parametros.find(' '), parametros.size());
        colunas.push_back(parametros.substr(0, fim));
        parametros.remove_prefix(std::min(fim + 1, parametros.size()));
    }
    return colunas;
}

// A command as the store takes it.
struct Instrucao {
    QString nome;
    QString sql;
    std::vector<ColumnType> tipos; // of its parameters
};

// The rows come in one order wherever the data lie: what a file leaves as it was written, a server leaves as it
// last happened to be changed.
QString Com_Desempate(const EntradaDoCatalogo &entrada)
{
    QString sql = esquema::Texto(entrada.sql);
    if (entrada.desempate.empty()) return sql;
    if (sql.endsWith(u';')) sql.chop(1);
    const bool ordenada = sql.contains(QLatin1StringView(" ORDER BY "));
    return sql + (ordenada ? QStringLiteral(", ") : QStringLiteral(" ORDER BY ")) + esquema::Texto(entrada.desempate);
}

Instrucao Preparar(const EntradaDoCatalogo &entrada)
{
    Instrucao instrucao{esquema::Texto(entrada.nome), Com_Desempate(entrada), {}};
    for (const std::string_view coluna : Colunas(entrada.parametros))
        instrucao.tipos.push_back(Tipo_Do_Parametro(entrada.tabela, coluna));
    return instrucao;
}

const Instrucao &Preparada(std::size_t posicao)
{
    static const std::vector<Instrucao> todas = [] {
        std::vector<Instrucao> instrucoes;
        instrucoes.reserve(comandos::catalogo.size());
        for (const EntradaDoCatalogo &entrada : comandos::catalogo)
            instrucoes.push_back(Preparar(entrada));
        return instrucoes;
    }();
    return todas[posicao];
}

// Each value becomes what its column holds.
std::vector<StoreValue> Converter(const Instrucao &instrucao, std::initializer_list<Value> parametros)
{
    const auto &tipos = instrucao.tipos;
    if (tipos.size() != parametros.size())
        throw Failure(Failure::StoreError, instrucao.nome,
                      QStringLiteral("%1 takes %2 parameters").arg(instrucao.nome).arg(tipos.size()));
    std::vector<StoreValue> valores;
    valores.reserve(tipos.size());
    for (std::size_t i = 0; i < tipos.size(); ++i)
        valores.push_back((parametros.begin() + i)->convertedTo(tipos[i]));
    return valores;
}

// The groups that a user sees: the shared ones and his or her own.
constexpr QLatin1StringView grupos_a_vista("SELECT ID FROM TblGrupos WHERE IdUtilizador = 0 OR IdUtilizador = ?");

QString Cadeia_Do_Ficheiro(const QString &caminho)
{
    return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source= '") + caminho + QStringLiteral("'") +
           QStringLiteral(";Jet OLEDB:Encrypt Database=True;Persist Security Info=False");
}
} // namespace

DE::DE(QString &CaminhoBD, QString pasta) : base_(CaminhoBD, std::move(pasta)) {}

Recordset &DE::Abrir(ComandoComLinhas comando, std::initializer_list<Value> parametros)
{
    Recordset &rs = Rs(comando);
    if (rs.State() == Recordset::Open) rs.Close();
    const Instrucao &instrucao = Preparada(comando.Posicao());
    rs = Ligacao().query(instrucao.sql, Converter(instrucao, parametros));
    return rs;
}

void DE::Percorrer(ComandoComLinhas comando, std::initializer_list<Value> parametros,
                   const std::function<void(const Row &)> &linha)
{
    Rs(comando).Close();
    const Instrucao &instrucao = Preparada(comando.Posicao());
    Ligacao().rows(instrucao.sql, Converter(instrucao, parametros), linha);
}

void DE::Percorrer_Nomes(const Value &IdUtilizador, const std::function<void(const Row &)> &linha)
{
    if (Num_Servidor()) return Percorrer("cmdListarTodosContactos", {IdUtilizador}, linha);
    Rs("cmdListarTodosContactos").Close();
    std::vector<qint64> a_vista;
    Ligacao().rows(grupos_a_vista + QStringLiteral(" ORDER BY ID"), {IdUtilizador.convertedTo(ColumnType::Long)},
                   [&](const Row &grupo) { a_vista.push_back(grupo.number(0)); });
    Ligacao().rows(QStringLiteral("SELECT ID, Nome, Grupo FROM TblLista ORDER BY Nome, ID"), {},
                   [&](const Row &contacto) {
                       if (std::binary_search(a_vista.begin(), a_vista.end(), contacto.number(2))) linha(contacto);
                   });
}

bool DE::Percorrer_As_Que(ComandoComLinhas comando, const Value &parametro, QLatin1StringView colunas,
                          const Wanted &querida, const std::function<void(const Row &)> &linha)
{
    Rs(comando).Close();
    const Instrucao &instrucao = Preparada(comando.Posicao());
    return Ligacao().rowsWanted(instrucao.sql, Converter(instrucao, {parametro}), colunas, querida, linha);
}

void DE::Executar(ComandoSemLinhas comando, std::initializer_list<Value> parametros)
{
    const Instrucao &instrucao = Preparada(comando.Posicao());
    Ligacao().execute(instrucao.sql, Converter(instrucao, parametros));
}

void DE::Executar_Com_Chave(ComandoSemLinhas comando, std::initializer_list<Value> parametros,
                            const QUuid &chave)
{
    const Instrucao &instrucao = Preparada(comando.Posicao());
    Ligacao().executeKeyed(instrucao.sql, Converter(instrucao, parametros), chave);
}

void DE::Juntar(const std::function<void()> &trabalho) { Ligacao().gathering(trabalho); }

void DE::Juntar_Por_Ordem(const std::function<void()> &trabalho) { Ligacao().gatheringInOrder(trabalho); }

int DE::Escritos(ComandoSemLinhas comando) const
{
    return ligacao_.written(Preparada(comando.Posicao()).sql);
}

Recordset DE::Grupos_Depois_De(qint64 ID)
{
    return Ligacao().query(QStringLiteral("SELECT ID, NomeGrupo FROM TblGrupos WHERE ID > ? ORDER BY ID"),
                           {ID});
}

void DE::Percorrer_Textos(const std::function<void(const Row &)> &linha)
{
    Ligacao().rows(QStringLiteral("SELECT * FROM TblIdiomas"), {}, linha);
}

void DE::Percorrer_Presencas(const std::function<void(const Row &)> &linha)
{
    Ligacao().rows(QStringLiteral("SELECT Email1, Email2, MSNMessenger FROM TblLista WHERE Email1 <> '' OR "
                                  "Email2 <> '' ORDER BY ID"),
                   {}, linha);
}

LinhasInteiras DE::Ler_Inteiras(std::string_view tabela, std::string_view coluna, const Value &valor)
{
    LinhasInteiras linhas;
    Recordset rs = Ligacao().query(linha_inteira::Sql_Ler(tabela, coluna),
                                   {valor.convertedTo(esquema::Tipo(tabela, coluna))});
    for (; !rs.Eof(); rs.MoveNext())
        linhas.push_back(linha_inteira::Da_Linha(tabela, rs));
    return linhas;
}

QString DE::Repor_Inteira(std::string_view tabela, const LinhaInteira &linha)
{
    Ligacao().execute(linha_inteira::Sql_Repor(tabela), linha_inteira::Valores(tabela, linha));
    return QString::number(Ligacao().lastId());
}

void DE::Repor_No_Grupo(const Value &ID, const Value &grupo, const Value &de_onde_esta)
{
    using enum ColumnType;
    Ligacao().execute(QStringLiteral("UPDATE TblLista SET Grupo = ? WHERE ID = ? AND Grupo = ?"),
                      {grupo.convertedTo(Long), ID.convertedTo(Long), de_onde_esta.convertedTo(Long)});
}

void DE::Percorrer_A_Vista(const Value &IdUtilizador, qint64 depois_de, int quantos,
                           const std::function<void(const Row &)> &linha)
{
    Ligacao().rows(
        QStringLiteral("SELECT * FROM TblLista WHERE ID > ? AND Grupo IN (%1) ORDER BY ID LIMIT ?").arg(grupos_a_vista),
        {depois_de, IdUtilizador.convertedTo(ColumnType::Long), qint64{quantos}}, linha);
}

qint64 DE::Ultimo_ID(std::string_view tabela) { return Ligacao().highestId(esquema::Texto(tabela)); }

void DE::Recuar_ID(std::string_view tabela, qint64 ultimo)
{
    Ligacao().giveAgainBehind(esquema::Texto(tabela), ultimo);
}

void DE::Largar_Fotografias(const QSet<QString> &nomes)
{
    constexpr std::size_t de_cada_vez = 500; // a statement of a store takes no endless list
    std::vector<StoreValue> valores;
    const auto largar = [&] {
        QStringList lugares(static_cast<qsizetype>(valores.size()), QStringLiteral("?"));
        Ligacao().execute(QStringLiteral("DELETE FROM TblFotografias WHERE Nome IN (%1) AND Nome COLLATE BINARY "
                                         "NOT IN (SELECT Fotografia FROM TblLista WHERE Fotografia IS NOT NULL)")
                              .arg(lugares.join(u',')),
                          std::exchange(valores, {}));
    };
    for (const QString &nome : nomes) {
        valores.emplace_back(nome);
        if (valores.size() == de_cada_vez) largar();
    }
    if (!valores.empty()) largar();
}

bool DE::E_A_Base_Aberta(const QString &caminho)
{
    return !Ligacao().isServer() && isSameFile(ligacao_.file(), caminho);
}

void DE::Copiar_Para(const QString &ficheiro, const std::function<void(int)> &feito)
{
    Ligacao().copyTo(Copia_Para_Ficheiro(ficheiro, feito));
}

void DE::Fechar_Ligacao()
{
    for (Recordset &rs : conjuntos_)
        rs.Close();
    ligacao_.Close();
}

void DE::Reabrir_Ligacao() { Abrir_Ligacao(); }

// What an older file lacks it may go on lacking: one that takes no writing can still be read.
void DE::Abrir_Ligacao()
{
    em_dia_ = false;
    ligacao_.Open();
    try {
        esquema::Por_Em_Dia(ligacao_);
    } catch (const Failure &falha) {
        if (falha.kind() != Failure::Kind::DatabaseNewer && !ligacao_.isServer()) return;
        ligacao_.Close();
        throw;
    }
}

void DE::Servir_De(const Connection::ServerOpener &abridor)
{
    abridor_ = abridor;
    ligacao_.setServerOpener(abridor);
}

void DE::Experimentar_Endereco(const QString &endereco)
{
    Connection outra;
    outra.setServerOpener(abridor_);
    outra.setConnectionString(endereco);
    outra.Open();
    esquema::Por_Em_Dia(outra);
}

void DE::Tudo_Ou_Nada(const std::function<void()> &trabalho)
{
    if (!Em_Dia()) skipFailure([this] { esquema::Por_Em_Dia(ligacao_); });
    ligacao_.allOrNothing(trabalho);
}

bool DE::Em_Dia()
{
    if (!em_dia_) em_dia_ = esquema::Em_Dia(Ligacao());
    return em_dia_;
}

void DE::Experimentar_Escrita()
{
    Ligacao().tryWriting();
    esquema::Por_Em_Dia(ligacao_);
}

// A failure leaves the connection closed, so the next command tries again and fails in the same way.
Connection &DE::Ligacao()
{
    if (ligacao_.isOpen()) return ligacao_;
    const QString onde = base_.Fixar();
    ligacao_.setConnectionString(Connection::isAddress(onde) ? onde : Cadeia_Do_Ficheiro(onde));
    Abrir_Ligacao();
    skipFailure([this] { Cuidar_Dos_Indices(ligacao_); }); // a file that takes no writing can still be read
    return ligacao_;
}
