#include "servidor/MudancaParaServidor.h"

#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/EsquemaNoServidor.h"
#include "store/Connection.h"
#include "store/postgres/ServerSession.h"

using namespace Qt::StringLiterals;
namespace esquema_la = esquema_no_servidor;

namespace
{
// Where something stands, for a person who has to find it.
QString Lugar(const Tabela &tabela, const ColunaDaTabela &coluna, const Recordset &rs)
{
    const ColunaDaTabela &primeira = tabela.colunas.front();
    const Field numero = rs.Fields(primeira.nome.data()); // a literal, so it ends in a zero
    return u"%1, %2 %3, %4"_s.arg(esquema::Texto(tabela.nome), esquema::Texto(primeira.nome),
                                  numero.isNull() ? u"?"_s : numero.text(), esquema::Texto(coluna.nome));
}

[[noreturn]] void Recusar(const QString &lugar, const QString &porque)
{
    throw Failure(Failure::StoreError, lugar, porque + u": "_s + lugar);
}

StoreValue Como_Esta(const Field &campo, ColumnType tipo)
{
    if (campo.isNull()) return std::monostate();
    switch (tipo) {
    case ColumnType::Long:
    case ColumnType::YesNo:
        return qint64{campo.number()};
    case ColumnType::Single:
        return campo.real();
    case ColumnType::Bytes:
        return campo.bytes();
    default:
        return campo.text();
    }
}

bool Precisa_De_Numero(const Tabela &tabela, const ColunaDaTabela &coluna)
{
    return coluna.contador || coluna.chave || (tabela.nome == "TblIdiomas" && coluna.nome == "ID");
}

StoreValue Valor(const Tabela &tabela, const ColunaDaTabela &coluna, const Recordset &rs)
{
    const auto lugar = [&] { return Lugar(tabela, coluna, rs); };
    StoreValue valor;
    try {
        valor = Como_Esta(rs.Fields(coluna.nome.data()), coluna.tipo);
    } catch (const Failure &falha) {
        Recusar(lugar(), falha.description());
    }
    if (std::holds_alternative<std::monostate>(valor) && Precisa_De_Numero(tabela, coluna))
        Recusar(lugar(), u"A row without its number"_s);
    if (const auto *escrito = std::get_if<QString>(&valor); escrito != nullptr && escrito->contains(QChar(0)))
        Recusar(lugar(), u"A text with the character U+0000, which no server keeps"_s);
    return valor;
}

bool Tem_Tabela(Connection &ficheiro, const Tabela &tabela)
{
    return skipFailure([&] { ficheiro.query(u"SELECT * FROM %1 LIMIT 0"_s.arg(esquema::Texto(tabela.nome)), {}); });
}

qint64 Passar_Linhas(Connection &ficheiro, ServerSession &servidor, const Tabela &tabela)
{
    QStringList colunas;
    for (const ColunaDaTabela &coluna : tabela.colunas)
        colunas << esquema::Texto(coluna.nome);
    qint64 linhas = 0;
    servidor.copyIn(esquema_la::Nome(tabela), colunas, [&](const ServerSession::Give &dar) {
        ficheiro.each(u"SELECT %1 FROM %2"_s.arg(colunas.join(u", "_s), esquema::Texto(tabela.nome)), {},
                      [&](const Recordset &rs) {
                          ServerSession::Values valores;
                          for (const ColunaDaTabela &coluna : tabela.colunas)
                              valores.push_back(Valor(tabela, coluna, rs));
                          dar(valores);
                          ++linhas;
                      });
    });
    return linhas;
}

qint64 Maior_Dado(Connection &ficheiro, const Tabela &tabela)
{
    return ficheiro.highestId(esquema::Texto(tabela.nome));
}

// What the server itself has put there, before anybody has worked with it.
bool De_Origem(const Tabela &tabela) { return tabela.nome == "TblConfig" || tabela.nome == "TblIdiomas"; }

mudanca::Contagem Passar(Connection &ficheiro, ServerSession &servidor, const Tabela &tabela)
{
    const QString nome = esquema_la::Nome(tabela);
    const auto gatilhos = [&](const QString &como) {
        servidor.run(u"ALTER TABLE %1 %2 TRIGGER USER"_s.arg(nome, como));
    };
    gatilhos(u"DISABLE"_s); // the numbers are given, and thousands of notices would tell nobody anything
    if (De_Origem(tabela)) servidor.run(u"DELETE FROM "_s + nome);
    const qint64 linhas = Passar_Linhas(ficheiro, servidor, tabela);
    gatilhos(u"ENABLE"_s);
    if (!esquema_la::Contador(tabela).isEmpty())
        servidor.query(u"UPDATE morvex_contadores SET ultimo = $2::bigint WHERE tabela = $1"_s,
                       {nome, Maior_Dado(ficheiro, tabela)});
    return {esquema::Texto(tabela.nome), linhas};
}

void Exigir_Lugar(ServerSession &servidor, const QString &posto)
{
    const int numero = base_no_servidor::Numero(servidor);
    if (numero < 0) return base_no_servidor::Criar(servidor, posto);
    if (numero != esquema::versao)
        throw Failure(
            Failure::StoreError, servidor.place(),
            u"The database on the server has had %1 steps, and this program needs %2"_s.arg(numero).arg(
                esquema::versao),
            numero > esquema::versao ? Failure::Kind::DatabaseNewer : Failure::Kind::Other);
    for (const Tabela &tabela : esquema::Tabelas())
        if (!De_Origem(tabela) &&
            !servidor.query(u"SELECT 1 FROM %1 LIMIT 1"_s.arg(esquema_la::Nome(tabela))).Eof())
            throw Failure(Failure::StoreError, servidor.place(),
                          u"The database on the server is not empty: %1 has rows"_s.arg(esquema::Texto(tabela.nome)));
}

void Exigir_Ficheiro(Connection &ficheiro)
{
    if (ficheiro.schemaNumber() > esquema::versao)
        throw Failure(Failure::StoreError, ficheiro.file(), u"The file is of a newer program"_s,
                      Failure::Kind::DatabaseNewer);
    for (const Tabela &tabela : esquema::Tabelas())
        if (tabela.desde == 0 && !Tem_Tabela(ficheiro, tabela))
            throw Failure(
                Failure::StoreError, ficheiro.file(),
                u"The file is none of this program's: it has no table %1"_s.arg(esquema::Texto(tabela.nome)));
}
} // namespace

QList<mudanca::Contagem> mudanca::Mudar(const QString &ficheiro, ServerSession &servidor,
                                        const QString &posto)
{
    Connection origem;
    origem.setDataSource(ficheiro);
    origem.OpenReadOnly();
    Exigir_Ficheiro(origem);
    Exigir_Lugar(servidor, posto);
    servidor.run(u"SET LOCAL statement_timeout = 0"_s);
    origem.query(u"BEGIN"_s, {}); // all of it as it stands now
    QList<Contagem> contagens;
    for (const Tabela &tabela : esquema::Tabelas())
        if (Tem_Tabela(origem, tabela)) contagens << Passar(origem, servidor, tabela);
    base_no_servidor::Trazer_Textos(servidor);
    return contagens;
}
