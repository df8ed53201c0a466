#include "servidor/BaseInicial.h"

#include "data/BaseNova.h"
#include "data/Textos.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/MudancaParaServidor.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// A file is made as the program makes a new one, and moved: so there is one way in which a database begins.
void base_inicial::Criar(ServerSession &servidor, const QString &posto, const QString &versao,
                         const std::optional<Sementes> &linhas)
{
    base_no_servidor::Criar(servidor, posto);
    const QTemporaryDir pasta;
    QString ficheiro = pasta.filePath(u"nova.mdb"_s);
    base_nova::Criar(ficheiro, versao, Textos_Do_Programa());
    if (linhas) {
        DE de(ficheiro, pasta.path());
        sementes::Semear(de, *linhas);
    }
    mudanca::Mudar(ficheiro, servidor, posto);
}
