#include "servidor/EsquemaNoServidor.h"

#include "store/postgres/ServerSession.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
using enum ColumnType;

// The columns that a person does not edit, by table: they move no version and are no change to others.
bool Sem_Versao(const Tabela &tabela, const ColunaDaTabela &coluna)
{
    return coluna.contador || (tabela.nome == "TblLista" && coluna.nome == "MSNMessenger");
}

QString Tipo(const ColunaDaTabela &coluna)
{
    switch (coluna.tipo) {
    case Long:
    case YesNo:
        return u"integer"_s;
    case Single:
        return u"double precision"_s;
    // In the form that is stored, the bytes of a date or a time are in order.
    case Date:
    case Time:
        return u"text COLLATE \"C\""_s;
    case Bytes:
        return u"bytea"_s;
    default:
        return coluna.chave ? u"text COLLATE \"C\""_s : u"text COLLATE morvex"_s;
    }
}

QString Sql_Coluna(const ColunaDaTabela &coluna)
{
    QString sql = esquema::Texto(coluna.nome).toLower() + u' ' + Tipo(coluna);
    if (coluna.contador || coluna.chave) sql += u" PRIMARY KEY"_s;
    if (!coluna.por_omissao.empty()) sql += u" DEFAULT "_s + esquema::Texto(coluna.por_omissao);
    return sql;
}

// The number by which a notice names a row; empty where a table has none.
QString Numero(const Tabela &tabela)
{
    const ColunaDaTabela &primeira = tabela.colunas.front();
    const bool numero = primeira.tipo == Long && (primeira.contador || primeira.chave);
    return numero ? esquema::Texto(primeira.nome).toLower() : QString();
}

// Texts that nobody changes at a desk.
bool Sem_Avisos(const Tabela &tabela) { return tabela.nome == "TblIdiomas" || tabela.nome == "TblRepeticao"; }

QString Funcao_De_Gatilho(const QString &nome, const QString &opcoes, const QString &corpo)
{
    return u"CREATE OR REPLACE FUNCTION %1() RETURNS trigger LANGUAGE plpgsql %2 AS $morvex$ %3 $morvex$"_s
        .arg(nome, opcoes, corpo);
}

QStringList Gatilho(const QString &nome, const QString &tabela, const QString &quando, const QString &funcao)
{
    return {u"DROP TRIGGER IF EXISTS %1 ON %2"_s.arg(nome, tabela),
            u"CREATE TRIGGER %1 %2 EXECUTE FUNCTION %3()"_s.arg(nome, quando, funcao)};
}

// With the owner's rights, in a room where nobody else puts anything.
const QString da_dona = u"SECURITY DEFINER SET search_path = pg_catalog, public, pg_temp"_s;

// A row gets the number behind the highest that the table holds or ever held. The counter's row is held until
// the transaction ends, so that one desk at a time takes numbers, and one that takes them back leaves no gap.
// It is not written at each insert: it need only remember what the table no longer shows.
QStringList Sql_Numerar(const QString &tabela, const QString &contador)
{
    const QString corpo =
        u"DECLARE dado integer; BEGIN "
        "SELECT ultimo INTO STRICT dado FROM public.morvex_contadores WHERE tabela = '%1' FOR UPDATE; "
        "IF NEW.%2 IS NULL THEN SELECT greatest(dado, max(%2)) + 1 INTO NEW.%2 FROM public.%1; END IF; "
        "PERFORM set_config('morvex.ultimo_id', NEW.%2::text, false); "
        "RETURN NEW; END"_s;
    const QString esquecer =
        u"BEGIN UPDATE public.morvex_contadores SET ultimo = foi.maior "
        "FROM (SELECT max(%2) AS maior FROM velhas) foi WHERE tabela = '%1' AND foi.maior > ultimo "
        "AND foi.maior > (SELECT coalesce(max(%2), 0) FROM public.%1); RETURN NULL; END"_s;
    return QStringList{
               u"INSERT INTO morvex_contadores (tabela, ultimo) VALUES ('%1', 0) ON CONFLICT DO NOTHING"_s
                   .arg(tabela),
               Funcao_De_Gatilho(u"morvex_numerar_"_s + tabela, da_dona, corpo.arg(tabela, contador)),
               Funcao_De_Gatilho(u"morvex_lembrar_"_s + tabela, da_dona, esquecer.arg(tabela, contador))} +
           Gatilho(u"morvex_numerar"_s, tabela, u"BEFORE INSERT ON %1 FOR EACH ROW"_s.arg(tabela),
                   u"morvex_numerar_"_s + tabela) +
           Gatilho(u"morvex_lembrar"_s, tabela,
                   u"AFTER DELETE ON %1 REFERENCING OLD TABLE AS velhas FOR EACH STATEMENT"_s.arg(tabela),
                   u"morvex_lembrar_"_s + tabela);
}

QStringList Sql_Versao(const Tabela &tabela, const QString &nome)
{
    QStringList colunas;
    for (const ColunaDaTabela &coluna : tabela.colunas)
        if (!Sem_Versao(tabela, coluna)) colunas << esquema::Texto(coluna.nome).toLower();
    return Gatilho(u"morvex_versao"_s, nome,
                   u"BEFORE UPDATE OF %1 ON %2 FOR EACH ROW"_s.arg(colunas.join(u", "_s), nome),
                   u"morvex_versao"_s);
}

// The rows that a notice is about: of a change only those whose version moved, where something can change
// that moves none.
QString Linhas_Mudadas(const Tabela &tabela, const QString &numero)
{
    const bool so_as_da_versao =
        std::any_of(tabela.colunas.begin(), tabela.colunas.end(),
                    [&](const ColunaDaTabela &coluna) { return !coluna.contador && Sem_Versao(tabela, coluna); });
    return so_as_da_versao
               ? u"SELECT n.%1 AS id FROM novas n JOIN velhas v USING (%1) WHERE n.versao <> v.versao"_s.arg(
                     numero)
               : u"SELECT %1 AS id FROM novas"_s.arg(numero);
}

// One notice a statement and table: the table, a letter, and the numbers of the rows, or * for more than a
// hundred.
QString Corpo_Do_Aviso(const Tabela &tabela)
{
    const QString numero = Numero(tabela);
    const QString id = numero.isEmpty() ? u"NULL"_s : numero;
    return u"DECLARE quantas bigint; ids text; BEGIN "
           "IF TG_OP = 'UPDATE' THEN SELECT count(*), string_agg(x.id::text, ',' ORDER BY x.id) INTO "
           "quantas, ids "
           "FROM (%1 LIMIT 101) x; "
           "ELSIF TG_OP = 'DELETE' THEN SELECT count(*), string_agg(x.id::text, ',' ORDER BY x.id) INTO "
           "quantas, ids "
           "FROM (SELECT %2 AS id FROM velhas LIMIT 101) x; "
           "ELSE SELECT count(*), string_agg(x.id::text, ',' ORDER BY x.id) INTO quantas, ids "
           "FROM (SELECT %2 AS id FROM novas LIMIT 101) x; END IF; "
           "IF quantas > 0 THEN PERFORM pg_notify('morvex', TG_TABLE_NAME || ' ' || lower(left(TG_OP, 1)) || "
           "' ' || "
           "CASE WHEN quantas > 100 OR ids IS NULL THEN '*' ELSE ids END); END IF; RETURN NULL; END"_s.arg(
               Linhas_Mudadas(tabela, id), id);
}

// Without statistics the server would join the rows of a mass update each with each.
QStringList Sql_Avisar(const Tabela &tabela, const QString &nome)
{
    const QString funcao = u"morvex_avisar_"_s + nome;
    const auto gatilho = [&](const QString &letra, const QString &quando) {
        return Gatilho(u"morvex_avisar_"_s + letra, nome, u"AFTER "_s + quando + u" FOR EACH STATEMENT"_s,
                       funcao);
    };
    return QStringList{Funcao_De_Gatilho(funcao, u"SET enable_nestloop = off"_s, Corpo_Do_Aviso(tabela))} +
           gatilho(u"i"_s, u"INSERT ON %1 REFERENCING NEW TABLE AS novas"_s.arg(nome)) +
           gatilho(u"u"_s, u"UPDATE ON %1 REFERENCING OLD TABLE AS velhas NEW TABLE AS novas"_s.arg(nome)) +
           gatilho(u"d"_s, u"DELETE ON %1 REFERENCING OLD TABLE AS velhas"_s.arg(nome));
}

QStringList Sql_Indices(std::string_view tabela)
{
    if (tabela == "TblIdiomas") return {u"CREATE INDEX IF NOT EXISTS morvex_textos ON tblidiomas (id)"_s};
    if (tabela != "TblLista") return {};
    // The first holds all that the lists of contacts read, in their order.
    return {u"CREATE INDEX IF NOT EXISTS morvex_nomes ON tbllista (nome NULLS FIRST, id NULLS FIRST) "
            "INCLUDE (grupo, dia, mes)"_s,
            u"CREATE INDEX IF NOT EXISTS morvex_grupos ON tbllista (grupo)"_s,
            u"CREATE INDEX IF NOT EXISTS morvex_email1 ON tbllista (email1)"_s,
            u"CREATE INDEX IF NOT EXISTS morvex_email2 ON tbllista (email2)"_s};
}
} // namespace

QString esquema_no_servidor::Nome(const Tabela &tabela) { return esquema::Texto(tabela.nome).toLower(); }

bool esquema_no_servidor::Com_Versao(const Tabela &tabela)
{
    return tabela.nome == "TblLista" || tabela.nome == "TblTarefas" || tabela.nome == "TblMemos" ||
           tabela.nome == "TblUsers";
}

QString esquema_no_servidor::Contador(const Tabela &tabela)
{
    const ColunaDaTabela &primeira = tabela.colunas.front();
    return primeira.contador ? esquema::Texto(primeira.nome).toLower() : QString();
}

// Case does not count, accents and forms do; the language of the order is the program's and not the
// machine's.
QString esquema_no_servidor::Sql_Ordem()
{
    return u"CREATE COLLATION morvex (provider = icu, locale = 'pt-PT-u-ka-noignore-ks-level2', deterministic = false)"_s;
}

QString esquema_no_servidor::Sql_Tabela(const Tabela &tabela)
{
    QStringList colunas;
    for (const ColunaDaTabela &coluna : tabela.colunas)
        colunas << Sql_Coluna(coluna);
    if (Com_Versao(tabela)) colunas << u"versao integer NOT NULL DEFAULT 0"_s;
    return u"CREATE TABLE %1 (%2)"_s.arg(Nome(tabela), colunas.join(u", "_s));
}

QStringList esquema_no_servidor::Sql_Proprias()
{
    return {u"CREATE TABLE IF NOT EXISTS morvex_esquema (numero integer NOT NULL)"_s,
            u"CREATE UNIQUE INDEX IF NOT EXISTS morvex_um_esquema ON morvex_esquema ((true))"_s,
            u"CREATE TABLE IF NOT EXISTS morvex_contadores (tabela text COLLATE \"C\" PRIMARY KEY, "
            "ultimo integer NOT NULL)"_s,
            u"CREATE TABLE IF NOT EXISTS gravacoes (chave uuid PRIMARY KEY, "
            "quando timestamptz NOT NULL DEFAULT now())"_s,
            // Where the row is that a key stands for, if it stands for one.
            u"ALTER TABLE gravacoes ADD COLUMN IF NOT EXISTS tabela text COLLATE \"C\", "
            "ADD COLUMN IF NOT EXISTS linha integer"_s};
}

QStringList esquema_no_servidor::Sql_Funcoes()
{
    return {
        // The number of the row that this session added last; Null before the first.
        u"CREATE OR REPLACE FUNCTION morvex_ultimo_id() RETURNS integer LANGUAGE sql STABLE AS $morvex$ "
        "SELECT nullif(current_setting('morvex.ultimo_id', true), '')::integer $morvex$"_s,
        // The highest number that a table's counter has ever given; 0 for none.
        u"CREATE OR REPLACE FUNCTION morvex_maior_id(qual text) RETURNS integer LANGUAGE plpgsql %1 AS "
        u"$morvex$ "
        "DECLARE dado integer; maior integer; BEGIN "
        "SELECT ultimo INTO dado FROM public.morvex_contadores WHERE tabela = lower(qual); "
        "IF NOT FOUND THEN RETURN 0; END IF; "
        "EXECUTE format('SELECT max(id) FROM public.%I', lower(qual)) INTO maior; "
        "RETURN greatest(dado, maior, 0); END $morvex$"_s.arg(da_dona),
        // The keys of rows that still stand; those of rows that are gone, or of long ago, are taken away.
        u"CREATE OR REPLACE FUNCTION morvex_chaves_de_pe() RETURNS SETOF uuid LANGUAGE plpgsql AS $morvex$ "
        "DECLARE qual text; BEGIN "
        "DELETE FROM gravacoes WHERE linha IS NOT NULL AND quando <= now(); "
        "FOR qual IN SELECT DISTINCT tabela FROM gravacoes WHERE linha IS NOT NULL LOOP "
        "EXECUTE format('DELETE FROM gravacoes WHERE tabela = %1$L AND linha NOT IN (SELECT id FROM %1$I)', qual); "
        "END LOOP; "
        "RETURN QUERY SELECT chave FROM gravacoes WHERE linha IS NOT NULL; END $morvex$"_s,
        // The numbers behind that one are given once more, but for those that the table still holds. No key may
        // take a new row for one that is gone.
        u"CREATE OR REPLACE FUNCTION morvex_voltar_a(qual text, ultimo_dado integer) RETURNS void LANGUAGE "
        u"sql "
        "%1 AS $morvex$ SELECT public.morvex_chaves_de_pe(); "
        "UPDATE public.morvex_contadores SET ultimo = greatest(ultimo_dado, 0) "
        "WHERE tabela = lower(qual) $morvex$"_s.arg(da_dona),
        Funcao_De_Gatilho(u"morvex_versao"_s, {}, u"BEGIN NEW.versao := OLD.versao + 1; RETURN NEW; END"_s)};
}

QStringList esquema_no_servidor::Sql_De(const Tabela &tabela)
{
    const QString nome = Nome(tabela);
    QStringList sql = Sql_Indices(tabela.nome);
    if (const QString contador = Contador(tabela); !contador.isEmpty()) sql << Sql_Numerar(nome, contador);
    if (Com_Versao(tabela)) sql << Sql_Versao(tabela, nome);
    if (!Sem_Avisos(tabela)) sql << Sql_Avisar(tabela, nome);
    return sql;
}

QStringList esquema_no_servidor::Sql_Direitos(const QString &base, const QString &posto)
{
    const QString de_base = ServerSession::name(base);
    const QString quem = ServerSession::name(posto);
    QStringList sql{u"REVOKE ALL ON DATABASE %1 FROM PUBLIC"_s.arg(de_base),
                    u"REVOKE ALL ON DATABASE %1 FROM %2"_s.arg(de_base, quem),
                    u"REVOKE ALL ON ALL TABLES IN SCHEMA public FROM PUBLIC, %1"_s.arg(quem),
                    u"REVOKE ALL ON ALL FUNCTIONS IN SCHEMA public FROM PUBLIC, %1"_s.arg(quem),
                    u"REVOKE CREATE ON SCHEMA public FROM PUBLIC, %1"_s.arg(quem),
                    u"GRANT CONNECT ON DATABASE %1 TO %2"_s.arg(de_base, quem),
                    u"GRANT USAGE ON SCHEMA public TO %1"_s.arg(quem)};
    for (const Tabela &tabela : esquema::Tabelas()) {
        const QString direitos = tabela.nome == "TblIdiomas"  ? u"SELECT"_s
                                 : tabela.nome == "TblConfig" ? u"SELECT, UPDATE"_s
                                                              : u"SELECT, INSERT, UPDATE, DELETE"_s;
        sql << u"GRANT %1 ON %2 TO %3"_s.arg(direitos, Nome(tabela), quem);
    }
    sql << u"GRANT SELECT ON morvex_esquema TO %1"_s.arg(quem)
        << u"GRANT SELECT, INSERT, DELETE ON gravacoes TO %1"_s.arg(quem);
    for (const QString &funcao : {u"morvex_ultimo_id()"_s, u"morvex_maior_id(text)"_s,
                                  u"morvex_voltar_a(text, integer)"_s, u"morvex_dobrar(text)"_s,
                                  u"morvex_chaves_de_pe()"_s})
        sql << u"GRANT EXECUTE ON FUNCTION %1 TO %2"_s.arg(funcao, quem);
    return sql;
}

QStringList esquema_no_servidor::Sql_Prazos(const QString &base)
{
    QStringList sql;
    for (const QString &prazo : {u"tcp_keepalives_idle = 60"_s, u"client_connection_check_interval = '10s'"_s,
                                 u"idle_in_transaction_session_timeout = '60s'"_s, u"lock_timeout = '5s'"_s,
                                 u"statement_timeout = '30s'"_s})
        sql << u"ALTER DATABASE %1 SET %2"_s.arg(ServerSession::name(base), prazo);
    return sql;
}
