#include "servidor/CopiaDoServidor.h"

#include "data/CopiaParaFicheiro.h"
#include "data/Esquema.h"
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "store/Connection.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
void Exigir_Numero(Connection &servidor)
{
    const bool deste_programa = !servidor.columns(u"morvex_esquema"_s).isEmpty();
    const int numero = deste_programa ? servidor.schemaNumber() : -1;
    if (numero == esquema::versao) return;
    throw Failure(
        Failure::StoreError, servidor.file(),
        numero < 0
            ? u"The database is none of this program's"_s
            : u"The database on the server has had %1 steps, and this program needs %2"_s.arg(numero).arg(
                  esquema::versao),
        numero > esquema::versao ? Failure::Kind::DatabaseNewer : Failure::Kind::Other);
}

QList<mudanca::Contagem> Contar(const QString &ficheiro)
{
    Connection copia;
    copia.setDataSource(ficheiro);
    copia.OpenReadOnly();
    QList<mudanca::Contagem> contagens;
    for (const Tabela &tabela : esquema::Tabelas()) {
        const QString nome = esquema::Texto(tabela.nome);
        const Recordset rs = copia.query(u"SELECT count(*) AS linhas FROM "_s + nome, {});
        contagens << mudanca::Contagem{nome, rs.Fields("linhas").number()};
    }
    return contagens;
}
} // namespace

QList<mudanca::Contagem> copia::Trazer(const QString &endereco, const QString &ficheiro)
{
    if (QFile::exists(ficheiro))
        throw Failure(Failure::StoreError, ficheiro, u"The file exists already: %1"_s.arg(ficheiro));
    Connection servidor;
    servidor.setDataSource(endereco);
    servidor.OpenReadOnly();
    Exigir_Numero(servidor);
    const QString nova = ficheiro + u".nova"_s;
    QFile::remove(nova);
    servidor.copyTo(Copia_Para_Ficheiro(nova, {}));
    if (!QFile::rename(nova, ficheiro)) {
        QFile::remove(nova);
        throw Failure(Failure::PathFileAccess, ficheiro,
                      u"The file could not be written: %1"_s.arg(ficheiro));
    }
    return Contar(ficheiro);
}
