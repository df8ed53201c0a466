#include "servidor/ExameDoServidor.h"

#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "platform/TextOrder.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/EsquemaNoServidor.h"
#include "store/postgres/ServerSession.h"

#include <QSet>

using namespace Qt::StringLiterals;
namespace esquema_la = esquema_no_servidor;

namespace
{
using exame::Achado;
using exame::Defeito;

class Exame
{
public:
    Exame(ServerSession &servidor, QString posto) : servidor_(servidor), posto_(std::move(posto)) {}

    QList<Achado> Correr()
    {
        Ver_Numero();
        Ver_Codigo();
        for (const Tabela &tabela : esquema::Tabelas())
            if (Ver_Tabela(tabela)) Ver_O_Que_Esta_Ao_Lado(tabela);
        Ver_Ordem();
        Ver_Letras();
        Ver_Textos();
        return achados_;
    }

private:
    void Achar(Defeito defeito, const QString &onde) { achados_ << Achado{defeito, onde}; }

    QSet<QString> Nomes(const QString &pergunta, const ServerSession::Values &valores = {})
    {
        QSet<QString> nomes;
        for (Recordset rs = servidor_.query(pergunta, valores); !rs.Eof(); rs.MoveNext())
            nomes.insert(rs.Fields("nome").text());
        return nomes;
    }

    void Ver_Numero()
    {
        const int numero = base_no_servidor::Numero(servidor_);
        if (numero < 0)
            throw Failure(Failure::StoreError, servidor_.place(),
                          u"The database is none of this program's"_s);
        if (numero != esquema::versao) Achar(Defeito::Numero, u"%1 / %2"_s.arg(numero).arg(esquema::versao));
    }

    void Ver_Codigo()
    {
        const QString codigo = servidor_.query(u"SHOW server_encoding"_s).Fields("server_encoding").text();
        if (codigo != "UTF8"_L1) Achar(Defeito::Codigo, codigo);
    }

    bool Ver_Tabela(const Tabela &tabela)
    {
        const QString nome = esquema_la::Nome(tabela);
        const QSet<QString> colunas = Nomes(
            u"SELECT attname::text AS nome FROM pg_attribute WHERE attrelid = to_regclass($1) AND attnum > 0 "
            "AND NOT attisdropped"_s,
            {u"public."_s + nome});
        if (colunas.isEmpty()) Achar(Defeito::Tabela, nome);
        for (const ColunaDaTabela &coluna : tabela.colunas)
            if (!colunas.isEmpty() && !colunas.contains(esquema::Texto(coluna.nome).toLower()))
                Achar(Defeito::Tabela, nome + u'.' + esquema::Texto(coluna.nome).toLower());
        return !colunas.isEmpty();
    }

    // The names of what should be there stand in the statements that make it.
    void Ver_O_Que_Esta_Ao_Lado(const Tabela &tabela)
    {
        const QString nome = esquema_la::Nome(tabela);
        const QSet<QString> gatilhos = Nomes(
            u"SELECT tgname::text AS nome FROM pg_trigger WHERE tgrelid = to_regclass($1) AND tgenabled = 'O'"_s,
            {u"public."_s + nome});
        const QString antes = u"CREATE TRIGGER "_s;
        for (const QString &sql : esquema_la::Sql_De(tabela))
            if (sql.startsWith(antes) && !gatilhos.contains(sql.section(u' ', 2, 2)))
                Achar(Defeito::Gatilho, nome + u'.' + sql.section(u' ', 2, 2));
        if (!esquema_la::Contador(tabela).isEmpty() &&
            Nomes(u"SELECT tabela AS nome FROM public.morvex_contadores WHERE tabela = $1"_s, {nome})
                .isEmpty())
            Achar(Defeito::Contador, nome);
        Ver_Direitos(tabela.nome, u"public."_s + nome);
    }

    void Ver_Direitos(std::string_view tabela, const QString &nome)
    {
        for (const QString &direito : {u"SELECT"_s, u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s}) {
            const bool precisa =
                direito == "SELECT"_L1 ||
                (tabela != "TblIdiomas" && (tabela != "TblConfig" || direito == "UPDATE"_L1));
            const bool tem = !servidor_
                                  .query(u"SELECT 1 FROM pg_roles WHERE rolname = $1 "
                                         "AND has_table_privilege(oid, $2, $3)"_s,
                                         {posto_, nome, direito})
                                  .Eof();
            if (precisa != tem) Achar(Defeito::Direitos, u"%1 %2"_s.arg(direito, nome));
        }
    }

    void Ver_Ordem()
    {
        const QSet<QString> outra =
            Nomes(u"SELECT collname::text AS nome FROM pg_collation WHERE collname = 'morvex' "
                  "AND collversion IS DISTINCT FROM pg_collation_actual_version(oid)"_s);
        if (!outra.isEmpty()) Achar(Defeito::Ordem, u"morvex"_s);
        static const QStringList nomes{u"ana"_s,   u"ANA"_s, u"Ânia"_s, u"André"_s,
                                       u"andre"_s, u"Zé"_s,  u"m²"_s,   u"2"_s};
        for (qsizetype i = 1; i < nomes.size(); ++i) {
            const int aqui = compareText(nomes[i - 1], nomes[i]);
            const int la =
                servidor_
                    .query(u"SELECT CASE WHEN a < b THEN -1 WHEN a > b THEN 1 ELSE 0 END AS sinal FROM "
                           "(SELECT $1::text COLLATE morvex AS a, $2::text COLLATE morvex AS b) x"_s,
                           {nomes[i - 1], nomes[i]})
                    .Fields("sinal")
                    .number();
            if ((aqui > 0) - (aqui < 0) != la) Achar(Defeito::Ordem, nomes[i - 1] + u" / "_s + nomes[i]);
        }
    }

    // Every letter of those that the file compares without case.
    void Ver_Letras()
    {
        QHash<QString, char16_t> dobradas; // what the server makes of a letter, and what the file does
        int diferentes = 0;
        servidor_.each(u"SELECT c, public.morvex_dobrar(chr(c)) FROM generate_series(1, 65535) c "
                       "WHERE c NOT BETWEEN 55296 AND 57343"_s,
                       [&](const ServerSession::Values &linha) {
                           const QChar letra(static_cast<char16_t>(std::get<qint64>(linha[0])));
                           const char16_t aqui = letra.toCaseFolded().unicode();
                           const auto antes = dobradas.constFind(std::get<QString>(linha[1]));
                           if (antes == dobradas.constEnd())
                               dobradas.insert(std::get<QString>(linha[1]), aqui);
                           else if (*antes != aqui)
                               ++diferentes;
                           folhas_[aqui].insert(std::get<QString>(linha[1]));
                       });
        for (const QSet<QString> &la : folhas_)
            if (la.size() > 1) ++diferentes;
        if (diferentes > 0) Achar(Defeito::Letras, QString::number(diferentes));
    }

    void Ver_Textos()
    {
        const QSet<QString> aqui =
            Nomes(u"SELECT id::text AS nome FROM public.tblidiomas WHERE id IS NOT NULL"_s);
        int faltam = 0;
        for (const QStringList &linha : Textos_Do_Programa().sliced(1))
            if (linha.constFirst().toInt() >= primeiro_texto_acrescentado &&
                !aqui.contains(linha.constFirst()))
                ++faltam;
        if (faltam > 0) Achar(Defeito::Textos, QString::number(faltam));
    }

    ServerSession &servidor_;
    QString posto_;
    QHash<char16_t, QSet<QString>>
        folhas_; // what the server makes of the letters that the file takes for one
    QList<Achado> achados_;
};
} // namespace

QList<exame::Achado> exame::Examinar(ServerSession &servidor, const QString &posto)
{
    QList<Achado> achados;
    servidor.snapshot([&] {
        servidor.run(u"SET LOCAL search_path = public"_s);
        achados = Exame(servidor, posto).Correr();
    });
    return achados;
}
