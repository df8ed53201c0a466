// Makes the database that is shipped: the empty tables, the one row of TblConfig and all interface texts. One that
// is there already is replaced; a failure leaves it as it was.
// Usage: criar_bd <TblIdiomas.tsv> <version> <morvex.mdb>
#include "data/Esquema.h"
#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "store/Connection.h"
#include "store/sqlite/NewDatabase.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdio>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace
{
QStringList Criar_Tabelas()
{
    QStringList sql;
    for (const Tabela &tabela : esquema::Tabelas()) sql << esquema::Sql_Criar(tabela);
    sql << u"PRAGMA user_version=%1"_s.arg(esquema::versao);
    return sql;
}

void Criar(const QString &textos, const QString &versao, const QString &destino)
{
    createDatabase(destino, Criar_Tabelas());
    Connection ligacao;
    ligacao.setDataSource(destino);
    ligacao.Open();
    ligacao.execute(u"BEGIN"_s, {});
    ligacao.execute(u"INSERT INTO TblConfig (ID, Idioma, Versao, Remetente, Destinatario) VALUES (1, '', ?, '', '')"_s,
                    {versao});
    Inserir_Textos(ligacao, Ler_Textos(textos), [](int) { return true; });
    ligacao.execute(u"COMMIT"_s, {});
}

// Whoever reads the file meanwhile, as tests do during a build, finds the old one or the new one, both whole.
void Substituir(const QString &textos, const QString &versao, const QString &destino)
{
    const QString nova = destino + u".nova"_s;
    QFile::remove(nova);
    try {
        Criar(textos, versao, nova);
        std::filesystem::rename(nova.toStdString(), destino.toStdString());
    } catch (...) {
        QFile::remove(nova);
        throw;
    }
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.size() != 4) {
        std::fputs("usage: criar_bd <TblIdiomas.tsv> <version> <morvex.mdb>\n", stderr);
        return 2;
    }
    try {
        Substituir(argumentos[1], argumentos[2], argumentos[3]);
    } catch (const std::exception &falha) {
        std::fprintf(stderr, "criar_bd: %s\n", falha.what());
        return 1;
    }
}
