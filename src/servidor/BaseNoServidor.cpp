#include "servidor/BaseNoServidor.h"

#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "servidor/Dobra.h"
#include "servidor/EsquemaNoServidor.h"
#include "store/postgres/ServerSession.h"

#include <QSet>

using namespace Qt::StringLiterals;
namespace esquema_la = esquema_no_servidor;

namespace
{
[[noreturn]] void Recusar(ServerSession &servidor, const QString &porque,
                          Failure::Kind especie = Failure::Kind::Other)
{
    throw Failure(Failure::StoreError, servidor.place(), porque, especie);
}

bool Ha(ServerSession &servidor, const QString &pergunta, const ServerSession::Values &valores = {})
{
    return !servidor.query(pergunta, valores).Eof();
}

QString Base(ServerSession &servidor)
{
    return servidor.query(u"SELECT current_database() AS base"_s).Fields("base").text();
}

void Exigir_Posto(ServerSession &servidor, const QString &posto)
{
    if (!Ha(servidor, u"SELECT 1 FROM pg_roles WHERE rolname = $1"_s, {posto}))
        Recusar(servidor, u"The role of the desks is missing: %1"_s.arg(posto));
    if (Ha(servidor, u"SELECT 1 WHERE current_user::text = $1::text"_s, {posto}))
        Recusar(servidor, u"The desks' role must not own the database: %1"_s.arg(posto));
}

void Exigir_Vazia(ServerSession &servidor)
{
    const Recordset rs = servidor.query(u"SHOW server_encoding"_s);
    if (rs.Fields("server_encoding").text() != "UTF8"_L1)
        Recusar(servidor, u"The database keeps letters as %1, and UTF8 is needed"_s.arg(
                              rs.Fields("server_encoding").text()));
    const Recordset outra = servidor.query(
        u"SELECT relname FROM pg_class WHERE relnamespace = 'public'::regnamespace AND relkind IN ('r', 'v', 'p') LIMIT 1"_s);
    if (!outra.Eof())
        Recusar(servidor,
                u"The database is not empty: it has the table %1"_s.arg(outra.Fields("relname").text()));
}

void Correr(ServerSession &servidor, const QStringList &instrucoes)
{
    for (const QString &sql : instrucoes)
        servidor.run(sql);
}

// Nothing may stand in the way of the words that follow, whatever the role's own settings are.
void Preparar(ServerSession &servidor)
{
    Correr(servidor, {u"SET LOCAL search_path = public"_s, u"SET LOCAL client_min_messages = warning"_s,
                      u"SET LOCAL statement_timeout = 0"_s, u"SET LOCAL lock_timeout = '30s'"_s,
                      u"SET LOCAL idle_in_transaction_session_timeout = 0"_s});
}

void Por_O_Que_Esta_Ao_Lado(ServerSession &servidor, const QString &posto)
{
    const LetrasPequenas letras = Letras_Pequenas_De(servidor);
    servidor.run(Sql_Dobrar(letras.ordem, Dobra_De(letras)));
    Correr(servidor, esquema_la::Sql_Funcoes());
    for (const Tabela &tabela : esquema::Tabelas())
        Correr(servidor, esquema_la::Sql_De(tabela));
    const QString base = Base(servidor);
    Correr(servidor, esquema_la::Sql_Direitos(base, posto));
    Correr(servidor, esquema_la::Sql_Prazos(base));
}

bool Outra_Ordem(ServerSession &servidor)
{
    return Ha(
        servidor,
        u"SELECT 1 FROM pg_collation WHERE collname = 'morvex' AND collnamespace = 'public'::regnamespace "
        "AND collversion IS DISTINCT FROM pg_collation_actual_version(oid)"_s);
}

// An index made by the old order no longer finds its rows.
void Acertar_A_Ordem(ServerSession &servidor)
{
    for (const Tabela &tabela : esquema::Tabelas())
        servidor.run(u"REINDEX TABLE "_s + esquema_la::Nome(tabela));
    servidor.run(u"ALTER COLLATION morvex REFRESH VERSION"_s);
}
} // namespace

int base_no_servidor::Numero(ServerSession &servidor)
{
    if (!Ha(servidor, u"SELECT 1 WHERE to_regclass('public.morvex_esquema') IS NOT NULL"_s)) return -1;
    const Recordset rs = servidor.query(u"SELECT numero FROM public.morvex_esquema"_s);
    return rs.Eof() ? -1 : rs.Fields("numero").number();
}

void base_no_servidor::Criar(ServerSession &servidor, const QString &posto)
{
    Preparar(servidor);
    Exigir_Vazia(servidor);
    Exigir_Posto(servidor, posto);
    servidor.run(esquema_la::Sql_Ordem());
    for (const Tabela &tabela : esquema::Tabelas())
        servidor.run(esquema_la::Sql_Tabela(tabela));
    Correr(servidor, esquema_la::Sql_Proprias());
    servidor.query(u"INSERT INTO morvex_esquema (numero) VALUES ($1)"_s, {qint64{esquema::versao}});
    Por_O_Que_Esta_Ao_Lado(servidor, posto);
}

base_no_servidor::Acerto base_no_servidor::Por_Em_Dia(ServerSession &servidor, const QString &posto)
{
    Preparar(servidor);
    Acerto acerto;
    acerto.antes = Numero(servidor);
    acerto.depois = esquema::versao;
    if (acerto.antes < 0) Recusar(servidor, u"The database is none of this program's"_s);
    if (acerto.antes > esquema::versao)
        Recusar(servidor,
                u"The database has had %1 steps, and this program knows %2"_s.arg(acerto.antes)
                    .arg(esquema::versao),
                Failure::Kind::DatabaseNewer);
    Exigir_Posto(servidor, posto);
    for (const Tabela &tabela : esquema::Tabelas())
        if (tabela.desde > acerto.antes && !Ha(servidor, u"SELECT 1 WHERE to_regclass($1) IS NOT NULL"_s,
                                               {u"public."_s + esquema_la::Nome(tabela)}))
            servidor.run(esquema_la::Sql_Tabela(tabela));
    Correr(servidor, esquema_la::Sql_Proprias());
    Por_O_Que_Esta_Ao_Lado(servidor, posto);
    acerto.ordem = Outra_Ordem(servidor);
    if (acerto.ordem) Acertar_A_Ordem(servidor);
    acerto.textos = Trazer_Textos(servidor);
    servidor.query(u"UPDATE morvex_esquema SET numero = $1"_s, {qint64{esquema::versao}});
    servidor.run(u"DELETE FROM gravacoes WHERE quando < now() - interval '1 day'"_s);
    return acerto;
}

int base_no_servidor::Trazer_Textos(ServerSession &servidor)
{
    QSet<int> aqui;
    servidor.each(u"SELECT id FROM tblidiomas WHERE id IS NOT NULL"_s,
                  [&](const ServerSession::Values &linha) {
                      aqui.insert(static_cast<int>(std::get<qint64>(linha[0])));
                  });
    QList<QStringList> linhas = Textos_Do_Programa();
    const auto uso = linhas.constFirst().indexOf(u"Uso"_s);
    for (QStringList &linha : linhas)
        linha.removeAt(uso);
    const QStringList colunas = linhas.takeFirst();
    int quantos = 0;
    servidor.copyIn(u"tblidiomas"_s, colunas, [&](const ServerSession::Give &dar) {
        for (const QStringList &linha : linhas) {
            const int numero = linha.constFirst().toInt();
            // Where one of the first is gone from a database that had it, somebody has taken it out.
            if (aqui.contains(numero) || (!aqui.isEmpty() && numero < primeiro_texto_acrescentado)) continue;
            ServerSession::Values valores(linha.begin(), linha.end());
            valores.front() = qint64{numero};
            dar(valores);
            ++quantos;
        }
    });
    return quantos;
}
