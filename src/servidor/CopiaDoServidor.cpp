#include "servidor/CopiaDoServidor.h"

#include "data/BaseNova.h"
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/EsquemaNoServidor.h"
#include "store/Connection.h"
#include "store/postgres/ServerSession.h"
#include "store/NewDatabase.h"

#include <QFile>

using namespace Qt::StringLiterals;
namespace esquema_la = esquema_no_servidor;

namespace
{
QStringList Colunas(const Tabela &tabela)
{
    QStringList colunas;
    for (const Coluna &coluna : tabela.colunas)
        colunas << esquema::Texto(coluna.nome);
    return colunas;
}

qint64 Passar_Linhas(ServerSession &servidor, Connection &ficheiro, const Tabela &tabela)
{
    const QStringList colunas = Colunas(tabela);
    const QString inserir = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(
        esquema::Texto(tabela.nome), colunas.join(u", "_s), QStringList(colunas.size(), u"?"_s).join(u", "_s));
    qint64 linhas = 0;
    servidor.each(u"SELECT %1 FROM %2 ORDER BY 1"_s.arg(colunas.join(u", "_s), esquema_la::Nome(tabela)),
                  [&](const ServerSession::Values &linha) {
                      ficheiro.execute(inserir, linha);
                      ++linhas;
                  });
    return linhas;
}

// The next row of the file gets the number that it would have got on the server: a row with the highest
// number that was ever given leaves it behind.
void Passar_Contador(ServerSession &servidor, Connection &ficheiro, const Tabela &tabela)
{
    const QString nome = esquema::Texto(tabela.nome);
    const qint64 maior =
        servidor.query(u"SELECT morvex_maior_id($1) AS maior"_s, {nome}).Fields("maior").number();
    if (maior <= ficheiro.highestId(nome)) return;
    ficheiro.execute(u"INSERT INTO %1 (ID) VALUES (?)"_s.arg(nome), {maior});
    ficheiro.execute(u"DELETE FROM %1 WHERE ID = ?"_s.arg(nome), {maior});
}

void Exigir_Numero(ServerSession &servidor)
{
    const int numero = base_no_servidor::Numero(servidor);
    if (numero == esquema::versao) return;
    throw Failure(
        Failure::StoreError, servidor.place(),
        numero < 0
            ? u"The database is none of this program's"_s
            : u"The database on the server has had %1 steps, and this program needs %2"_s.arg(numero).arg(
                  esquema::versao),
        numero > esquema::versao ? Failure::Kind::DatabaseNewer : Failure::Kind::Other);
}

QList<mudanca::Contagem> Encher(ServerSession &servidor, const QString &nova)
{
    createDatabase(nova, base_nova::Sql_Criar());
    Connection ficheiro;
    ficheiro.setDataSource(nova);
    ficheiro.Open();
    QList<mudanca::Contagem> contagens;
    ficheiro.allOrNothing([&] {
        for (const Tabela &tabela : esquema::Tabelas()) {
            contagens << mudanca::Contagem{esquema::Texto(tabela.nome), Passar_Linhas(servidor, ficheiro, tabela)};
            if (!esquema_la::Contador(tabela).isEmpty()) Passar_Contador(servidor, ficheiro, tabela);
        }
    });
    return contagens;
}
} // namespace

QList<mudanca::Contagem> copia::Trazer(ServerSession &servidor, const QString &ficheiro)
{
    if (QFile::exists(ficheiro))
        throw Failure(Failure::StoreError, ficheiro, u"The file exists already: %1"_s.arg(ficheiro));
    const QString nova = ficheiro + u".nova"_s;
    QFile::remove(nova);
    QList<mudanca::Contagem> contagens;
    try {
        servidor.snapshot([&] {
            servidor.run(u"SET LOCAL search_path = public"_s);
            servidor.run(u"SET LOCAL statement_timeout = 0"_s);
            Exigir_Numero(servidor);
            contagens = Encher(servidor, nova);
        });
        if (!QFile::rename(nova, ficheiro))
            throw Failure(Failure::PathFileAccess, ficheiro,
                          u"The file could not be written: %1"_s.arg(ficheiro));
    } catch (...) {
        QFile::remove(nova);
        throw;
    }
    return contagens;
}
