#include "data/IndicesDoLivro.h"

#include "platform/TextOrder.h"
#include "store/Connection.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int livro_grande = 4000; // contacts; reading and sorting fewer takes about 5 ms
const QString prefixo = u"IdxNomes_"_s;

bool Livro_Grande(Connection &ligacao)
{
    const Recordset rs = ligacao.query(u"SELECT max(ID) AS ultimo FROM TblLista"_s, {});
    const Field ultimo = rs.Fields("ultimo");
    return !ultimo.isNull() && ultimo.number() > livro_grande;
}

QStringList Indices(Connection &ligacao)
{
    QStringList nomes = ligacao.indexes(u"TblLista"_s);
    nomes.removeIf([](const QString &nome) { return !nome.startsWith(prefixo); });
    return nomes;
}
} // namespace

void Cuidar_Dos_Indices(Connection &ligacao)
{
    if (ligacao.isServer()) return; // its administrator's tool has made one
    const QString actual = prefixo + textOrderVersion();
    QStringList indices = Indices(ligacao);
    const bool existe = indices.removeOne(actual);
    for (const QString &velho : indices)
        ligacao.execute(u"DROP INDEX IF EXISTS "_s + velho, {});
    if (!Livro_Grande(ligacao)) return;
    if (!existe)
        ligacao.execute(
            u"CREATE INDEX IF NOT EXISTS %1 ON TblLista (Nome, ID, Grupo, Dia, Mes)"_s.arg(actual), {});
    ligacao.indexPairs(u"IdxDias"_s, colunas_do_aniversario);
}
