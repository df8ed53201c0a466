#include "interchange/GruposPorNome.h"

#include "data/DE.h"
#include "platform/TextOrder.h"

bool GruposPorNome::Ordem::operator()(const QString &a, const QString &b) const
{
    return compareText(a, b) < 0;
}

std::optional<QString> GruposPorNome::Procurar(const QString &nome)
{
    auto achado = ids_.find(nome);
    if (achado == ids_.end()) {
        Ler_Novos();
        achado = ids_.find(nome);
    }
    return achado == ids_.end() ? std::nullopt : std::optional(achado->second);
}

void GruposPorNome::Esquecer()
{
    ids_.clear();
    ultimo_ = nenhum;
}

// Of several groups of one name the first stays, and one without a name equals none.
void GruposPorNome::Ler_Novos()
{
    for (Recordset rs = de_.Grupos_Depois_De(ultimo_); !rs.Eof(); rs.MoveNext()) {
        const QString ID = rs.Fields("ID").text();
        ultimo_ = ID.toLongLong();
        if (const Field nome = rs.Fields("NomeGrupo"); !nome.isNull()) ids_.emplace(nome.text(), ID);
    }
}
