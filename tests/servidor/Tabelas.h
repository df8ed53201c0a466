// All that a database holds, table by table, for comparing: a file's against a server's.
#pragma once

#include "data/Esquema.h"
#include "store/Connection.h"

namespace tabelas
{
inline QString Texto(std::string_view nome) { return QString::fromUtf8(nome.data(), qsizetype(nome.size())); }

// The cells of a row with their kind, so that 1 and "1", Null and "" differ.
inline QString Linha(const Row &linha)
{
    QStringList celulas;
    for (int i = 0; i < linha.columns(); ++i) {
        const QString nome = QString::fromUtf8(linha.name(i)).toLower();
        if (nome == QLatin1StringView("versao") && i > 2) continue; // a row's version is the server's own
        const Field campo = linha.field(i);
        celulas << nome + u'=' + (campo.isNull() ? QStringLiteral("<Null>") : campo.text());
        if (!campo.isNull() && !campo.bytes().isValidUtf8())
            celulas << QString::fromLatin1(campo.bytes().toHex());
    }
    return celulas.join(u'|');
}

inline QStringList Linhas(Connection &ligacao, const Tabela &tabela)
{
    QStringList colunas;
    for (const ColunaDaTabela &coluna : tabela.colunas)
        colunas << Texto(coluna.nome);
    QStringList linhas;
    ligacao.rows(QStringLiteral("SELECT %1 FROM %2").arg(colunas.join(u','), Texto(tabela.nome)), {},
                 [&](const Row &linha) { linhas << Linha(linha); });
    linhas.sort();
    return linhas;
}

inline QStringList Contadores(Connection &ligacao)
{
    QStringList contadores;
    for (const Tabela &tabela : esquema::Tabelas())
        if (tabela.colunas.front().contador)
            contadores << Texto(tabela.nome) + u' ' + QString::number(ligacao.highestId(Texto(tabela.nome)));
    return contadores;
}
} // namespace tabelas
