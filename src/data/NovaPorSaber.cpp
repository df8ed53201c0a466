#include "data/NovaPorSaber.h"

#include "data/DE.h"

#include <algorithm>

NovaPorSaber::NovaPorSaber(DE &de, std::string_view tabela, std::vector<std::string_view> colunas)
    : de_(de), tabela_(tabela), colunas_(std::move(colunas))
{
}

QString NovaPorSaber::Gravar(const QStringList &valores, const Inserir &inserir, const Actualizar &actualizar)
{
    const QString chegada = ID();
    if (chegada.isEmpty()) {
        Vigiar(valores, inserir);
    } else {
        achada_ = chegada; // an update may lose its answer too, and have changed the values
        actualizar(chegada);
    }
    QString gravada = ID();
    perdida_ = 0;
    return gravada;
}

void NovaPorSaber::Vigiar(const QStringList &valores, const Inserir &inserir)
{
    const int antes = de_.Escritas_Perdidas();
    const auto anotar = [&] {
        if (de_.Escritas_Perdidas() == antes) return;
        perdida_ = de_.Escritas_Perdidas();
        valores_ = valores;
        achada_.clear();
    };
    try {
        inserir();
    } catch (...) {
        anotar();
        throw;
    }
    anotar();
}

bool NovaPorSaber::Por_Procurar() const
{
    const Fate destino = de_.Destino_Da_Escrita(perdida_);
    return destino == Fate::Arrived || destino == Fate::Unknown;
}

QStringList NovaPorSaber::Chegada() const
{
    return de_.Destino_Da_Escrita(perdida_) == Fate::Arrived ? valores_ : QStringList();
}

// The last one that has these values. While nobody knows the server is away, which the question raises.
QString NovaPorSaber::ID() const
{
    if (!Por_Procurar()) return {};
    if (!achada_.isEmpty()) return de_.Ler_Inteiras(tabela_, "ID", achada_).empty() ? QString() : achada_;
    const LinhasInteiras linhas = de_.Ler_Inteiras(tabela_, colunas_.front(), valores_.front());
    const auto e_ela = [this](const LinhaInteira &linha) {
        return std::equal(colunas_.begin(), colunas_.end(), valores_.begin(), valores_.end(),
                          [&](std::string_view coluna, const QString &valor) {
                              return linha_inteira::Texto(linha, coluna) == valor;
                          });
    };
    const auto ela = std::find_if(linhas.rbegin(), linhas.rend(), e_ela);
    return ela == linhas.rend() ? QString() : linha_inteira::Texto(*ela, "ID");
}
