#include "testlib/BaseDoPrograma.h"

#include "data/Sementes.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "servidor/EsquemaNoServidor.h"
#include "servidor/MudancaParaServidor.h"
#include "store/postgres/PostgresStore.h"
#include "store/postgres/ServerSession.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;
namespace esquema_la = esquema_no_servidor;

namespace
{
// Beside the tables of the program: their rows as they are to be found, in a schema of its own each, and how
// they are put back. A table that became another one is noticed, and then the database is made anew; so are
// texts, which are too many to be put back each time.
constexpr auto molde = R"(
CREATE SCHEMA ensaio;
CREATE SCHEMA vazias;
CREATE SCHEMA semeadas;
GRANT USAGE ON SCHEMA ensaio TO morvex_dono;
CREATE TABLE ensaio.estado (marca text, textos text);
CREATE TABLE ensaio.textos AS SELECT * FROM public.tblidiomas;
CREATE FUNCTION ensaio.marca() RETURNS text LANGUAGE sql AS $$
    SELECT concat_ws(' ',
        (SELECT md5(string_agg(concat(relname, relkind, relacl), ',' ORDER BY oid)) FROM pg_class
         WHERE relnamespace = 'public'::regnamespace),
        (SELECT concat(count(*), ':', max(xmin::text::bigint)) FROM pg_attribute),
        (SELECT concat(count(*), ':', max(xmin::text::bigint)) FROM pg_trigger),
        (SELECT concat(count(*), ':', max(xmin::text::bigint)) FROM pg_proc)) $$;
CREATE FUNCTION ensaio.marca_dos_textos() RETURNS text LANGUAGE sql AS $$
    SELECT concat(count(*), ':', max(xmin::text::bigint)) FROM public.tblidiomas $$;
CREATE FUNCTION ensaio.guardar(onde text) RETURNS void LANGUAGE plpgsql AS $$
DECLARE tabela text; BEGIN
    FOR tabela IN SELECT relname FROM pg_class
        WHERE relnamespace = 'public'::regnamespace AND relkind = 'r' AND relname <> 'tblidiomas' LOOP
        EXECUTE format('CREATE TABLE %I.%I AS SELECT * FROM public.%I', onde, tabela, tabela);
    END LOOP; END $$;
CREATE FUNCTION ensaio.limpar(de_onde text) RETURNS boolean
    LANGUAGE plpgsql SECURITY DEFINER SET session_replication_role = 'replica' AS $$
DECLARE tabela text; BEGIN
    IF ensaio.marca() IS DISTINCT FROM (SELECT marca FROM ensaio.estado) THEN RETURN false; END IF;
    IF ensaio.marca_dos_textos() IS DISTINCT FROM (SELECT textos FROM ensaio.estado) THEN
        DELETE FROM public.tblidiomas;
        INSERT INTO public.tblidiomas SELECT * FROM ensaio.textos;
        UPDATE ensaio.estado SET textos = ensaio.marca_dos_textos();
    END IF;
    FOR tabela IN SELECT relname FROM pg_class WHERE relnamespace = 'vazias'::regnamespace AND relkind = 'r' LOOP
        IF pg_relation_size(format('public.%I', tabela)::regclass) > 1 << 18 THEN
            EXECUTE format('TRUNCATE public.%I', tabela);
        ELSE
            EXECUTE format('DELETE FROM public.%I', tabela);
        END IF;
        EXECUTE format('INSERT INTO public.%I SELECT * FROM %I.%I', tabela, de_onde, tabela);
    END LOOP;
    RETURN true; END $$;
CREATE FUNCTION ensaio.recusar() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION 'no'; END $$;
GRANT EXECUTE ON FUNCTION ensaio.recusar() TO morvex_dono;
)";

// Over the socket, which asks for no password: what that costs has no place in each test.
QString Morada(const QString &quem, const QString &base)
{
    QFile ficheiro(qEnvironmentVariable("MORVEX_POSTGRES") + u"/tomada"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) qFatal("no database server is installed here");
    return QString::fromUtf8(ficheiro.readAll())
        .trimmed()
        .replace(u"morvex_ensaio@/postgres"_s, quem + u"@/"_s + base);
}

QString Do_Administrador(const QString &base) { return Morada(u"morvex_ensaio"_s, base); }
QString Da_Dona_De(const QString &base) { return Morada(u"morvex_dono"_s, base); }

// A server that was not stopped since may have a model of another schema, or with other texts.
QString Nome_Do_Modelo()
{
    QCryptographicHash resumo(QCryptographicHash::Md5);
    const auto juntar = [&resumo](const QStringList &textos) { resumo.addData(textos.join(u'\n').toUtf8()); };
    for (const Tabela &tabela : esquema::Tabelas())
        juntar(esquema_la::Sql_De(tabela) << esquema_la::Sql_Tabela(tabela));
    juntar(esquema_la::Sql_Proprias() + esquema_la::Sql_Funcoes());
    for (const QStringList &linha : Textos_Do_Programa())
        juntar(linha);
    for (const ContactoDeAmostra &contacto : sementes::PT().Contactos)
        juntar({contacto.Nome, contacto.Obs});
    resumo.addData(QByteArrayView(molde));
    return u"ensaio_modelo_"_s + QString::fromLatin1(resumo.result().toHex().left(12));
}

// The database that is shipped, moved there, and a first run in it.
void Encher(const QString &base)
{
    {
        ServerSession dona(Da_Dona_De(base));
        dona.together([&dona] {
            mudanca::Mudar(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/morvex.mdb"_s, dona, u"morvex"_s);
        });
    }
    ServerSession servidor(Do_Administrador(base));
    servidor.run(QString::fromUtf8(molde));
    servidor.run(u"SELECT ensaio.guardar('vazias')"_s);
    {
        QString posto = Morada(u"morvex"_s, base);
        DE de(posto, {});
        sementes::Semear(de, sementes::PT());
    }
    servidor.run(u"SELECT ensaio.guardar('semeadas')"_s);
    servidor.run(u"INSERT INTO ensaio.estado SELECT ensaio.marca(), ensaio.marca_dos_textos()"_s);
}

// Made by the first program that needs it. It has its name once it is whole.
void Fazer_Modelo(ServerSession &servidor, const QString &nome)
{
    servidor.run(u"SELECT pg_advisory_lock(2027)"_s);
    if (servidor.query(u"SELECT 1 FROM pg_database WHERE datname = $1"_s, {nome}).Eof()) {
        const QString meio = nome + u"_meio"_s;
        servidor.run(u"DROP DATABASE IF EXISTS "_s + meio);
        servidor.run(u"CREATE DATABASE %1 OWNER morvex_dono TEMPLATE template0"_s.arg(meio));
        Encher(meio);
        servidor.run(u"ALTER DATABASE %1 RENAME TO %2"_s.arg(meio, nome));
    }
    servidor.run(u"SELECT pg_advisory_unlock(2027)"_s);
}

const QString &Modelo(ServerSession &servidor)
{
    static const QString nome = Nome_Do_Modelo();
    static bool feito = false;
    if (!std::exchange(feito, true)) Fazer_Modelo(servidor, nome);
    return nome;
}

std::vector<std::unique_ptr<BaseDoPrograma>> &Bases()
{
    static std::vector<std::unique_ptr<BaseDoPrograma>> bases;
    return bases;
}

BaseDoPrograma &Livre()
{
    for (const auto &base : Bases())
        if (!base->Tomada()) return *base;
    if (Bases().empty()) qAddPostRoutine([] { Bases().clear(); });
    Bases().push_back(std::make_unique<BaseDoPrograma>(
        u"ensaio_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(Bases().size() + 1)));
    return *Bases().back();
}
} // namespace

bool BaseDoPrograma::Pedida() { return qEnvironmentVariableIsSet("MORVEX_SERVIDOR"); }

BaseDoPrograma &BaseDoPrograma::Tomar(Linhas linhas)
{
    BaseDoPrograma &base = Livre();
    if (!base.Limpa(linhas)) {
        base.Refazer();
        if (!base.Limpa(linhas)) qFatal("the tests' model of a database is none");
    }
    base.tomada_ = true;
    return base;
}

BaseDoPrograma::BaseDoPrograma(QString nome) : nome_(std::move(nome))
{
    // A test may write thousands of rows in one statement.
    dona_.setServerOpener([](const QString &endereco) {
        PostgresPatience paciencia;
        paciencia.command = paciencia.list = std::chrono::minutes(1);
        return PostgresStore::open(endereco, paciencia);
    });
    dona_.setConnectionString(Da_Dona_De(nome_));
}

BaseDoPrograma::~BaseDoPrograma()
{
    dona_.Close();
    skipFailure([this] {
        ServerSession(Do_Administrador(u"postgres"_s))
            .run(u"DROP DATABASE IF EXISTS %1 WITH (FORCE)"_s.arg(nome_));
    });
}

QString BaseDoPrograma::Do_Posto() const { return Morada(u"morvex"_s, nome_); }

QString BaseDoPrograma::De_Nenhuma() const { return Morada(u"morvex"_s, nome_ + u"_nenhuma"_s); }

bool BaseDoPrograma::Limpa(Linhas linhas)
{
    if (!dona_.isOpen()) return false;
    bool limpa = false;
    skipFailure([&] {
        const auto de_onde = linhas == Linhas::Vazias ? u"vazias"_s : u"semeadas"_s;
        limpa = dona_.query(u"SELECT ensaio.limpar(?) AS limpa"_s, {de_onde}).Fields("limpa").number() != 0;
    });
    return limpa;
}

void BaseDoPrograma::Refazer()
{
    dona_.Close();
    ServerSession servidor(Do_Administrador(u"postgres"_s));
    const QString &modelo = Modelo(servidor);
    servidor.run(u"DROP DATABASE IF EXISTS %1 WITH (FORCE)"_s.arg(nome_));
    servidor.run(u"CREATE DATABASE %1 OWNER morvex_dono TEMPLATE %2"_s.arg(nome_, modelo));
    dona_.Open();
}
