#include "cards/ContactosVisiveis.h"

#include "data/Geral.h"
#include "store/Row.h"

using namespace Qt::StringLiterals;

namespace
{
// Every column but that of the group, whose name is told apart.
ColunasDoContacto Colunas_Da_Linha(const Recordset &rs)
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        if (i != static_cast<std::size_t>(Coluna::IDGrupo))
            colunas.valores[i] = rs.Fields(ColunasDoContacto::na_tabela[i]).textOrEmpty();
    return colunas;
}
} // namespace

ContactosVisiveis::ContactosVisiveis(Geral &geral) : geral_(geral)
{
    Recordset &rs = geral_.de.Abrir("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        grupos_.insert(rs.Fields("ID").number(), rs.Fields("NomeGrupo").textOrEmpty());
    rs.Close();
}

QList<int> ContactosVisiveis::Todos() const
{
    QList<int> todos;
    geral_.de.Percorrer_Nomes(geral_.SessaoActual.IdUtilizador,
                              [&](const Row &linha) { todos << linha.field(linha.column("ID")).number(); });
    return todos;
}

QList<int> ContactosVisiveis::Do_Grupo(int IDGrupo) const
{
    QList<int> dele;
    if (!grupos_.contains(IDGrupo)) return dele;
    geral_.de.Percorrer("cmdListarNomes", {QString::number(IDGrupo)},
                        [&](const Row &linha) { dele << linha.field(linha.column("ID")).number(); });
    return dele;
}

std::optional<ContactoDoLivro> ContactosVisiveis::Ler(int ID) const
{
    Recordset &rs = geral_.de.Abrir("cmdEditarNome", {ID});
    std::optional<ContactoDoLivro> lido;
    if (!rs.Eof() && grupos_.contains(rs.Fields("Grupo").number()))
        lido =
            ContactoDoLivro{ID, {Colunas_Da_Linha(rs), grupos_.value(rs.Fields("Grupo").number()), {}, {}}};
    rs.Close();
    return lido;
}
