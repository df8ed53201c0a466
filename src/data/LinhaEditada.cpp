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

// What stands there may be what was written here, and its answer lost.
std::optional<QStringList> LinhaEditada::Ler()
{
    const LinhasInteiras linhas = de_.Ler_Inteiras(forma_.tabela, "ID", ID_);
    if (linhas.empty()) return {};
    const QStringList la = Textos(forma_.colunas, [&](std::string_view coluna) {
        return linha_inteira::Texto(linhas.front(), coluna);
    });
    if (escrito_ && !escrito_->Mudou_La(la)) {
        encontro_ = escrito_;
        chegou_ = true;
    }
    return la;
}

LinhaEditada::Estado LinhaEditada::La()
{
    const auto la = Ler();
    if (!la) return Estado::Eliminada;
    return encontro_->Mudou_La(*la) ? Estado::Mudada : Estado::Igual;
}

LinhaEditada::Fim LinhaEditada::Gravar(QStringList aqui, const Perguntar &perguntar, const Escrever &escrever)
{
    const QStringList no_editor = aqui;
    std::optional<EncontroDeLinhas> combinado; // once the person was asked
    for (;;) {
        std::optional<QStringList> la;
        EncontroDeLinhas::Lugares disputados;
        de_.Tudo_Ou_Nada([&] {
            la = Ler();
            if (!la) return;
            const EncontroDeLinhas &encontro = combinado ? *combinado : *encontro_;
            disputados = encontro.Disputados(aqui, *la);
            if (!disputados.empty()) return;
            const bool juntar = chegou_ || encontro.Mudou_La(*la);
            const QStringList valores = juntar ? encontro.Juntas(aqui, *la) : aqui;
            escrito_.emplace(forma_.campos, valores, no_editor);
            escrever(valores);
        });
        if (!la) return Fim::Eliminada;
        if (disputados.empty()) return Fim::Gravada;
        const auto deles = perguntar({disputados, aqui, *la});
        if (!deles) return Fim::Deixada;
        // What was settled is one side from now on, and the row as the person saw it what both know.
        aqui = (combinado ? *combinado : *encontro_).Juntas(aqui, *la, *deles);
        combinado.emplace(forma_.campos, *la, *la);
    }
}
