#include "cards/LinhaDaAgenda.h"

#include "data/DE.h"
#include "store/Row.h"

#include <algorithm>

LugaresDaAgenda::LugaresDaAgenda(const Row &linha) : do_ID_(linha.column("ID"))
{
    std::transform(ColunasDoContacto::na_tabela.begin(), ColunasDoContacto::na_tabela.end(), lugares_.begin(),
                   [&](const char *nome) { return linha.column(nome); });
}

qint64 LugaresDaAgenda::ID(const Row &linha) const { return linha.number(do_ID_); }

ColunasDoContacto LugaresDaAgenda::Colunas(const Row &linha) const
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < lugares_.size(); ++i) {
        const std::string_view valor = linha.utf8(lugares_[i]);
        if (!valor.empty())
            colunas.valores[i] = QString::fromUtf8(valor.data(), static_cast<qsizetype>(valor.size()));
    }
    return colunas;
}

LinhaDaAgenda LugaresDaAgenda::Linha(const Row &linha) const
{
    LinhaDaAgenda lida{Colunas(linha), {}};
    for (std::size_t i = 0; i < lugares_.size(); ++i)
        lida.nulas[i] = lida.colunas.valores[i].isEmpty() && linha.field(lugares_[i]).isNull();
    return lida;
}

void linha_da_agenda::Escrever(DE &de, const QString &ID, const LinhaDaAgenda &linha)
{
    const auto v = [&](std::size_t i) -> Value {
        const QString &valor = linha.colunas.valores[i];
        return linha.nulas[i] && valor.isEmpty() ? Value(nullptr) : Value(valor);
    };
    de.Executar("cmdUpdateNome", {v(0), v(1), v(2), v(3), v(4), v(5), v(6), v(7), v(8), v(9), v(10), v(11),
                                  v(12), v(13), v(14), v(15), v(16), ID});
}
