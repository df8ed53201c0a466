// Makes the manual's pages from their texts.
// Usage: criar_manual <folder of the source> <TblIdiomas.tsv> <folder of the pages>
#include "ferramentas/Manual.h"

#include <cstdio>
#include <exception>
#include <QCoreApplication>
#include <QStringList>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.size() != 4) {
        std::fputs("usage: criar_manual <folder of the source> <TblIdiomas.tsv> <folder of the pages>\n",
                   stderr);
        return 2;
    }
    try {
        manual::Criar(argumentos[1], argumentos[2], argumentos[3]);
    } catch (const std::exception &falha) {
        std::fprintf(stderr, "criar_manual: %s\n", falha.what());
        return 1;
    }
}
