#include "data/BaseNova.h"

#include "data/Esquema.h"
#include "data/PassosDoEsquema.h"
#include "data/Textos.h"
#include "store/Connection.h"
#include "store/NewDatabase.h"

using namespace Qt::StringLiterals;

QStringList base_nova::Sql_Criar()
{
    QStringList sql;
    for (const Tabela &tabela : esquema::Tabelas())
        sql << esquema::Sql_Criar(tabela);
    return sql;
}

void base_nova::Criar(const QString &destino, const QString &versao, const QList<QStringList> &textos)
{
    createDatabase(destino, Sql_Criar(), esquema::versao);
    Connection ligacao;
    ligacao.setDataSource(destino);
    ligacao.Open();
    ligacao.allOrNothing([&] {
        ligacao.execute(
            u"INSERT INTO TblConfig (ID, Idioma, Versao, Remetente, Destinatario) VALUES (1, '', ?, '', '')"_s,
            {versao});
        Inserir_Textos(ligacao, textos, [](int) { return true; });
    });
}
