// Makes the database that is shipped: the empty tables, the one row of TblConfig and all interface texts. One that
// is there already is replaced; a failure leaves it as it was.
// Usage: criar_bd <TblIdiomas.tsv> <version> <morvex.mdb>
#include "data/BaseNova.h"
#include "data/Textos.h"

#include <QCoreApplication>
#include <QFile>
#include <cstdio>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace
{
// Whoever reads the file meanwhile, as tests do during a build, finds the old one or the new one, both whole.
void Substituir(const QString &textos, const QString &versao, const QString &destino)
{
    const QString nova = destino + u".nova"_s;
    QFile::remove(nova);
    try {
        base_nova::Criar(nova, versao, Ler_Textos(textos));
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
