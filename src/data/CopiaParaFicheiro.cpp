#include "data/CopiaParaFicheiro.h"

#include "data/BaseNova.h"
#include "data/Esquema.h"

namespace
{
QString texto(std::string_view nome)
{
    return QString::fromUtf8(nome.data(), static_cast<qsizetype>(nome.size()));
}
} // namespace

FileCopy Copia_Para_Ficheiro(const QString &ficheiro, std::function<void(int)> feito)
{
    FileCopy copia{ficheiro, base_nova::Sql_Criar(), {}, std::move(feito)};
    for (const Tabela &tabela : esquema::Tabelas()) {
        FileCopy::Table uma{texto(tabela.nome), {}, tabela.colunas.front().contador};
        for (const Coluna &coluna : tabela.colunas)
            uma.columns << texto(coluna.nome);
        copia.tables << uma;
    }
    return copia;
}
