#include "data/LinhaComId.h"

#include "data/DE.h"

std::optional<LinhaInteira> Linha_Com_Id(DE &de, std::string_view tabela, const QString &ID)
{
    LinhasInteiras linhas = de.Ler_Inteiras(tabela, "ID", ID);
    return linhas.empty() ? std::nullopt : std::optional(std::move(linhas.front()));
}
