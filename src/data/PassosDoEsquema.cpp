#include "data/PassosDoEsquema.h"

#include "data/Esquema.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "store/Connection.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
bool Tem_Tabela(Connection &ligacao, const Tabela &tabela)
{
    return !ligacao.columns(esquema::Texto(tabela.nome)).isEmpty();
}

// Another program's may be chosen by mistake. It counts its own versions, and nothing is added to it.
bool Deste_Programa(Connection &ligacao)
{
    const auto tabelas = esquema::Tabelas();
    return std::all_of(tabelas.begin(), tabelas.end(),
                       [&](const Tabela &tabela) { return tabela.desde > 0 || Tem_Tabela(ligacao, tabela); });
}

// A table may be there without its step: a file that was written anew from its own statements forgets how
// many it has had.
void Criar_Tabelas(Connection &ligacao, int passo)
{
    for (const Tabela &tabela : esquema::Tabelas())
        if (tabela.desde == passo && !Tem_Tabela(ligacao, tabela))
            ligacao.execute(esquema::Sql_Criar(tabela), {});
}

void Trazer_Textos(Connection &ligacao)
{
    QSet<int> aqui;
    Recordset rs = ligacao.query(u"SELECT ID FROM TblIdiomas"_s, {});
    for (; !rs.Eof(); rs.MoveNext())
        if (!rs.Fields("ID").isNull()) aqui.insert(rs.Fields("ID").number());
    Inserir_Textos(ligacao, Textos_Do_Programa(), [&](int numero) {
        return numero >= primeiro_texto_acrescentado && !aqui.contains(numero);
    });
}

bool Falta_Algum(Connection &ligacao)
{
    const int dados = ligacao.schemaNumber();
    if (dados > esquema::versao)
        throw Failure(
            Failure::StoreError, ligacao.file(),
            u"The database has had %1 steps, and this program knows %2"_s.arg(dados).arg(esquema::versao),
            Failure::Kind::DatabaseNewer);
    return dados < esquema::versao;
}

// Asked for again: another copy of the program may have been first.
void Dar_Os_Que_Faltam(Connection &ligacao)
{
    if (!Falta_Algum(ligacao)) return;
    for (int passo = ligacao.schemaNumber() + 1; passo <= esquema::versao; ++passo)
        Criar_Tabelas(ligacao, passo);
    Trazer_Textos(ligacao);
    ligacao.setSchemaNumber(esquema::versao);
}

// A desk may not change the tables that all desks share.
void Exigir_Em_Dia(Connection &ligacao)
{
    if (Falta_Algum(ligacao))
        throw Failure(
            Failure::StoreError, ligacao.file(),
            u"The database has had %1 steps, and this program needs %2"_s.arg(ligacao.schemaNumber())
                .arg(esquema::versao),
            Failure::Kind::DatabaseOlder);
}
} // namespace

bool esquema::Em_Dia(Connection &ligacao) { return ligacao.schemaNumber() == versao; }

void esquema::Por_Em_Dia(Connection &ligacao)
{
    if (ligacao.isServer()) return Exigir_Em_Dia(ligacao);
    if (Em_Dia(ligacao) || !Deste_Programa(ligacao) || !Falta_Algum(ligacao)) return;
    ligacao.allOrNothing([&] { Dar_Os_Que_Faltam(ligacao); });
}
