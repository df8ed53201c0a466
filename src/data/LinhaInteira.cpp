#include "data/LinhaInteira.h"

#include "data/Esquema.h"
#include "store/Recordset.h"

#include <algorithm>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{
std::span<const ColunaDaTabela> Colunas(std::string_view tabela)
{
    const auto tabelas = esquema::Tabelas();
    const auto achada =
        std::find_if(tabelas.begin(), tabelas.end(), [&](const Tabela &t) { return t.nome == tabela; });
    return achada == tabelas.end() ? std::span<const ColunaDaTabela>() : achada->colunas;
}
} // namespace

QString linha_inteira::Sql_Ler(std::string_view tabela, std::string_view coluna)
{
    return u"SELECT * FROM %1 WHERE %2 = ? ORDER BY %3"_s.arg(esquema::Texto(tabela), esquema::Texto(coluna),
                                                              esquema::Texto(Colunas(tabela).front().nome));
}

QString linha_inteira::Sql_Repor(std::string_view tabela)
{
    QStringList nomes;
    for (const ColunaDaTabela &coluna : Colunas(tabela))
        nomes << esquema::Texto(coluna.nome);
    const QString sinais = QStringList(nomes.size(), u"?"_s).join(u',');
    return u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(esquema::Texto(tabela), nomes.join(u','), sinais);
}

LinhaInteira linha_inteira::Da_Linha(std::string_view tabela, const Recordset &rs)
{
    LinhaInteira linha;
    for (const ColunaDaTabela &coluna : Colunas(tabela)) {
        const Field campo = rs.Fields(coluna.nome.data()); // a literal, so it ends in a zero
        const Value valor = campo.isNull()                     ? Value(nullptr)
                            : coluna.tipo == ColumnType::Bytes ? Value(campo.bytes())
                                                               : Value(campo.text());
        linha[coluna.nome] = valor.convertedTo(coluna.tipo);
    }
    return linha;
}

std::vector<StoreValue> linha_inteira::Valores(std::string_view tabela, const LinhaInteira &linha)
{
    std::vector<StoreValue> valores;
    for (const ColunaDaTabela &coluna : Colunas(tabela))
        valores.push_back(linha.at(coluna.nome));
    return valores;
}

QString linha_inteira::Texto(const LinhaInteira &linha, std::string_view coluna)
{
    return Field(linha.at(coluna)).textOrEmpty();
}
