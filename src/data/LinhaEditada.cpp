#include "data/LinhaEditada.h"

#include "data/DE.h"

namespace
{
QStringList Textos(const std::vector<std::string_view> &colunas,
                   const std::function<QString(std::string_view)> &ler)
{
    QStringList textos;
    for (const std::string_view coluna : colunas)
        textos << ler(coluna);
    return textos;
}
} // namespace

void LinhaEditada::Comecar(const QString &ID, const Recordset &rs, QStringList mostrada)
{
    ID_ = ID;
    const QStringList antes = Textos(forma_.colunas, [&](std::string_view coluna) {
        return rs.Fields(coluna.data()).textOrEmpty(); // a literal, so it ends in a zero
    });
    encontro_.emplace(forma_.campos, antes, std::move(mostrada));
}

void LinhaEditada::Comecar(const QString &ID, const QStringList &mostrada)
{
    ID_ = ID;
    encontro_.emplace(forma_.campos, mostrada, mostrada);
}

std::optional<QStringList> LinhaEditada::Ler() const
{
    const LinhasInteiras linhas = de_.Ler_Inteiras(forma_.tabela, "ID", ID_);
    if (linhas.empty()) return {};
    return Textos(forma_.colunas,
                  [&](std::string_view coluna) { return linha_inteira::Texto(linhas.front(), coluna); });
}

LinhaEditada::Fim LinhaEditada::Gravar(QStringList aqui, const Perguntar &perguntar,
                                       const Escrever &escrever) const
{
    EncontroDeLinhas encontro = *encontro_;
    for (;;) {
        std::optional<QStringList> la;
        EncontroDeLinhas::Lugares disputados;
        de_.Tudo_Ou_Nada([&] {
            la = Ler();
            if (!la) return;
            disputados = encontro.Disputados(aqui, *la);
            if (disputados.empty()) escrever(encontro.Mudou_La(*la) ? encontro.Juntas(aqui, *la) : aqui);
        });
        if (!la) return Fim::Eliminada;
        if (disputados.empty()) return Fim::Gravada;
        const auto deles = perguntar({disputados, aqui, *la});
        if (!deles) return Fim::Deixada;
        // What was settled is one side from now on, and the row as the person saw it what both know.
        aqui = encontro.Juntas(aqui, *la, *deles);
        encontro = EncontroDeLinhas(forma_.campos, *la, *la);
    }
}
