#include "data/CopiaParaFicheiro.h"

#include "data/BaseNova.h"
#include "data/Esquema.h"
#include "data/PassosDoEsquema.h"

FileCopy Copia_Para_Ficheiro(const QString &ficheiro, std::function<void(int)> feito)
{
    FileCopy copia{ficheiro, base_nova::Sql_Criar(), {}, std::move(feito), esquema::versao};
    for (const Tabela &tabela : esquema::Tabelas()) {
        FileCopy::Table uma{esquema::Texto(tabela.nome), {}, tabela.colunas.front().contador};
        for (const ColunaDaTabela &coluna : tabela.colunas)
            uma.columns << esquema::Texto(coluna.nome);
        copia.tables << uma;
    }
    return copia;
}
