#include "data/Esquema.h"

#include "platform/Failure.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace
{
using enum ColumnType;
using Coluna = ColunaDaTabela; // written a hundred times here

constexpr std::array colunas_TblLista{
    Coluna{"ID", Long, true},      Coluna{"Nome", Text},         Coluna{"Telefone1", Text},
    Coluna{"Telefone2", Text},     Coluna{"Fax", Text},          Coluna{"Telemovel1", Text},
    Coluna{"Telemovel2", Text},    Coluna{"Telemovel3", Text},   Coluna{"Dia", Text},
    Coluna{"Mes", Text},           Coluna{"Ano", Text},          Coluna{"Email1", Text},
    Coluna{"Email2", Text},        Coluna{"Website", Text},      Coluna{"Morada", Text},
    Coluna{"Obs", Text},           Coluna{"Fotografia", Text},   Coluna{"Grupo", Long},
    Coluna{"MSNMessenger", Text},
};
constexpr std::array colunas_TblGrupos{
    Coluna{"ID", Long, true},
    Coluna{"NomeGrupo", Text},
    Coluna{"IdUtilizador", Long, false, "0"},
};
constexpr std::array colunas_TblUsers{
    Coluna{"ID", Long, true},   Coluna{"Utilizador", Text}, Coluna{"Pass", Text},
    Coluna{"SystemTray", YesNo}, Coluna{"Adicionar", YesNo}, Coluna{"Editar", YesNo},
    Coluna{"Eliminar", YesNo},  Coluna{"Grupos", YesNo},    Coluna{"Utilizadores", YesNo},
};
constexpr std::array colunas_TblMemos{
    Coluna{"ID", Long, true},    Coluna{"Titulo", Text},     Coluna{"Descricao", Text},
    Coluna{"LeftForm", Single},  Coluna{"TopForm", Single},  Coluna{"Width", Single},
    Coluna{"Height", Single},    Coluna{"FontName", Text},   Coluna{"FontSize", Single},
    Coluna{"FontBold", YesNo},   Coluna{"FontItalic", YesNo}, Coluna{"CorFundo", Long},
    Coluna{"Utilizador", Long},
};
constexpr std::array colunas_TblTarefas{
    Coluna{"ID", Long, true}, Coluna{"Tarefa", Text},     Coluna{"Data", Date},
    Coluna{"Hora", Time},     Coluna{"Utilizador", Long}, Coluna{"IDRepeticao", Long},
};
constexpr std::array colunas_TblRepeticao{
    Coluna{"ID", Long, true},
    Coluna{"Nome", Text},
};
constexpr std::array colunas_TblConfig{
    Coluna{"ID", Long, true}, Coluna{"Idioma", Text},       Coluna{"Versao", Text},
    Coluna{"Remetente", Text}, Coluna{"Destinatario", Text},
};
constexpr std::array colunas_TblIdiomas{
    Coluna{"ID", Long},           Coluna{"PortuguesPT", Text}, Coluna{"PortuguesBR", Text},
    Coluna{"InglesUK", Text},     Coluna{"EspanholES", Text},  Coluna{"ItalianoIT", Text},
    Coluna{"FrancesFR", Text},    Coluna{"AlemaoDE", Text},
};
constexpr std::array colunas_TblEmails{
    Coluna{"ID", Long, true},    Coluna{"Email", Text},        Coluna{"ServerName", Text},
    Coluna{"Username", Text},    Coluna{"PalavraPasse", Text}, Coluna{"IdUtilizador", Long},
};
constexpr std::array colunas_TblFotografias{
    Coluna{"Nome", Text, false, {}, true},
    Coluna{"Imagem", Bytes},
};
constexpr std::array colunas_TblCartoes{
    Coluna{"IDContacto", Long, false, {}, true},
    Coluna{"UID", Text},
    Coluna{"conta", Text},
    Coluna{"href", Text},
    Coluna{"etag", Text},
    Coluna{"cartao", Bytes},
    Coluna{"resumo", Text},
};
constexpr std::array colunas_TblDiferentes{
    Coluna{"IDContacto", Long},
    Coluna{"IDOutro", Long},
};
constexpr std::array colunas_TblSincronizacao{
    Coluna{"IdUtilizador", Long, false, {}, true},
    Coluna{"Endereco", Text},
    Coluna{"Nome", Text},
    Coluna{"PalavraPasse", Text},
    Coluna{"Livro", Text},
    Coluna{"NomeDoLivro", Text},
    Coluna{"IDGrupo", Long},
    Coluna{"Ligada", YesNo},
    Coluna{"AoArrancar", YesNo},
    Coluna{"Minutos", Long},
    Coluna{"Testemunho", Text},
    Coluna{"Corrida", Long, false, "0"},
    Coluna{"UltimaVez", Text},
    Coluna{"Resultado", Text},
};
constexpr std::array colunas_TblSincronizados{
    Coluna{"Par", Text, false, {}, true},
    Coluna{"IdUtilizador", Long},
    Coluna{"IDContacto", Long},
    Coluna{"href", Text},
    Coluna{"etag", Text},
    Coluna{"estado", Long},
    Coluna{"resumo", Text},
    Coluna{"acordo", Text},
};
constexpr std::array colunas_TblOcorrencias{
    Coluna{"ID", Long, true}, Coluna{"IdUtilizador", Long}, Coluna{"Quando", Text},
    Coluna{"Que", Long},      Coluna{"IDContacto", Long},   Coluna{"Nome", Text},
    Coluna{"Campo", Text},    Coluna{"Valor", Text},        Coluna{"Outro", Text},
};

constexpr std::array tabelas{
    Tabela{"TblLista", colunas_TblLista},        Tabela{"TblGrupos", colunas_TblGrupos},
    Tabela{"TblUsers", colunas_TblUsers},        Tabela{"TblMemos", colunas_TblMemos},
    Tabela{"TblTarefas", colunas_TblTarefas},    Tabela{"TblRepeticao", colunas_TblRepeticao},
    Tabela{"TblConfig", colunas_TblConfig},      Tabela{"TblIdiomas", colunas_TblIdiomas},
    Tabela{"TblEmails", colunas_TblEmails},      Tabela{"TblFotografias", colunas_TblFotografias, 1},
    Tabela{"TblCartoes", colunas_TblCartoes, 1}, Tabela{"TblDiferentes", colunas_TblDiferentes, 2},
    Tabela{"TblSincronizacao", colunas_TblSincronizacao, 3},
    Tabela{"TblSincronizados", colunas_TblSincronizados, 3},
    Tabela{"TblOcorrencias", colunas_TblOcorrencias, 3},
};

QString Tipo_Armazenado(const Coluna &coluna)
{
    if (coluna.contador) return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    switch (coluna.tipo) {
    case Long:
    case YesNo: return QStringLiteral("INTEGER");
    case Single: return QStringLiteral("REAL");
    // In the form that is stored, the bytes of a date or a time are in order. The words' collation would say the
    // same, at a multiple of the cost, and the alarm asks each second.
    case Date:
    case Time: return QStringLiteral("TEXT");
    case Bytes: return QStringLiteral("BLOB");
    // A key is no word, and tools that don't know the words' order must be able to check its index.
    default: return coluna.chave ? QStringLiteral("TEXT") : QStringLiteral("TEXT COLLATE MORVEX");
    }
}

QString Sql_Coluna(const Coluna &coluna)
{
    QString sql = esquema::Texto(coluna.nome) + u' ' + Tipo_Armazenado(coluna);
    if (coluna.chave) sql += QStringLiteral(" PRIMARY KEY");
    if (!coluna.por_omissao.empty()) sql += QStringLiteral(" DEFAULT ") + esquema::Texto(coluna.por_omissao);
    return sql;
}
} // namespace

QString esquema::Texto(std::string_view literal)
{
    return QString::fromUtf8(literal.data(), static_cast<qsizetype>(literal.size()));
}

std::span<const Tabela> esquema::Tabelas() { return tabelas; }

ColumnType esquema::Tipo(std::string_view tabela, std::string_view coluna)
{
    const auto achada =
        std::find_if(tabelas.begin(), tabelas.end(), [&](const Tabela &t) { return t.nome == tabela; });
    if (achada != tabelas.end())
        for (const Coluna &c : achada->colunas)
            if (c.nome == coluna) return c.tipo;
    throw Failure(Failure::ItemNotFound, esquema::Texto(tabela), QStringLiteral("No column named %1").arg(esquema::Texto(coluna)));
}

// STRICT: a value of a wrong type fails at its command and not at some later reading.
QString esquema::Sql_Criar(const Tabela &tabela)
{
    QStringList colunas;
    for (const Coluna &coluna : tabela.colunas) colunas << Sql_Coluna(coluna);
    return QStringLiteral("CREATE TABLE %1 (%2) STRICT").arg(esquema::Texto(tabela.nome), colunas.join(QStringLiteral(", ")));
}
