#include "interchange/DE2.h"

#include "platform/Failure.h"
#include "platform/jet/JetFile.h"

#include <algorithm>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array<const char16_t *, DE2::Comandos> sql{
    u"SELECT TblLista.* FROM TblLista ORDER BY ID",
    u"SELECT COUNT(ID) AS CountRegistos FROM TblLista",
    u"SELECT * FROM TblGrupos WHERE ID=?",
    u"SELECT * FROM TblMemos",
    u"SELECT * FROM TblUsers WHERE ID=?",
    u"SELECT COUNT(ID) AS CountMemos FROM TblMemos",
    u"SELECT * FROM TblTarefas",
    u"SELECT COUNT(ID) AS CountTarefas FROM TblTarefas",
};

constexpr std::array tabelas_lidas{"TblLista", "TblGrupos", "TblUsers", "TblMemos", "TblTarefas"};

enum class Especie { Propria, Antiga, Nenhuma };

Especie Reconhecer(const QString &caminho)
{
    constexpr qint64 menor_pagina = 4096;
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly) || ficheiro.size() < menor_pagina) return Especie::Nenhuma;
    const QByteArray inicio = ficheiro.read(32);
    if (inicio.startsWith(QByteArray("SQLite format 3\0", 16))) return Especie::Propria;
    return inicio.mid(4, 15) == "Standard Jet DB" ? Especie::Antiga : Especie::Nenhuma;
}

// Values as they are handed on: always as text that no locale changes, but for whole numbers. The older kind
// has one type for dates and times; which of the two is meant, the column tells.
struct EmValor {
    bool hora;

    StoreValue operator()(std::monostate) const { return {}; }
    StoreValue operator()(bool sim) const { return sim ? u"True"_s : u"False"_s; }
    StoreValue operator()(qint64 numero) const { return numero; }
    StoreValue operator()(double numero) const
    {
        return QString::number(static_cast<float>(numero), 'g', QLocale::FloatingPointShortest);
    }
    StoreValue operator()(const QString &texto) const { return texto; }
    StoreValue operator()(const QDateTime &momento) const
    {
        return momento.toString(hora ? u"hh:mm:ss"_s : u"dd-MM-yyyy"_s);
    }
};

std::vector<StoreValue> Em_Valores(const JetFile::Table &tabela, std::size_t linha)
{
    std::vector<StoreValue> valores;
    for (qsizetype i = 0; i < tabela.columns.size(); ++i)
        valores.push_back(std::visit(EmValor{tabela.columns[i].compare("Hora"_L1, Qt::CaseInsensitive) == 0},
                                     tabela.rows[linha][static_cast<std::size_t>(i)]));
    return valores;
}

void Ordenar_Por_ID(JetFile::Table &tabela)
{
    const auto id = tabela.columns.indexOf(u"ID"_s);
    if (id < 0) return;
    const auto coluna = static_cast<std::size_t>(id);
    std::stable_sort(tabela.rows.begin(), tabela.rows.end(),
                     [&](const auto &a, const auto &b) { return a[coluna] < b[coluna]; });
}

void Copiar_Tabela(Connection &cn, const QString &nome, JetFile::Table tabela)
{
    Ordenar_Por_ID(tabela);
    QStringList colunas;
    for (const QString &coluna : tabela.columns)
        colunas << u'[' + coluna + u']';
    cn.execute(u"CREATE TABLE %1 (%2)"_s.arg(nome, colunas.join(u", "_s)), {});
    const QString inserir =
        u"INSERT INTO %1 VALUES (%2)"_s.arg(nome, QStringList(colunas.size(), u"?"_s).join(u','));
    for (std::size_t i = 0; i < tabela.rows.size(); ++i)
        cn.execute(inserir, Em_Valores(tabela, i));
}
} // namespace

DE2::DE2(const QString &caminho)
{
    const Especie especie = Reconhecer(caminho);
    if (especie == Especie::Nenhuma)
        throw Failure(Failure::StoreError, caminho, u"The file is no database: %1"_s.arg(caminho));
    if (especie == Especie::Propria)
        Abrir_Proprio(caminho);
    else
        Carregar_Antigo(caminho);
}

// A merge skips what fails, so a damaged file must be known before: it would be merged in part without a
// word.
void DE2::Abrir_Proprio(const QString &caminho)
{
    cn_.setConnectionString(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source= '"_s + caminho + u"'"_s +
                            u";Persist Security Info=False"_s);
    cn_.OpenReadOnly();
    const QString veredicto = cn_.query(u"PRAGMA quick_check(1)"_s, {}).Fields("quick_check").text();
    if (veredicto != "ok"_L1)
        throw Failure(Failure::StoreError, caminho, u"The database is damaged: %1"_s.arg(veredicto));
}

// A table that can't be read is not there; the others are.
void DE2::Carregar_Antigo(const QString &caminho)
{
    const JetFile ficheiro(caminho);
    cn_.OpenInMemory();
    cn_.execute(u"BEGIN"_s, {});
    for (const char *nome : tabelas_lidas)
        skipFailure(
            [&] { Copiar_Tabela(cn_, QLatin1StringView(nome), ficheiro.read(QLatin1StringView(nome))); });
    cn_.execute(u"COMMIT"_s, {});
}

Recordset &DE2::Abrir(Comando comando) { return Correr(comando, {}); }

Recordset &DE2::Abrir(Comando comando, const QString &ID)
{
    return Correr(comando, {Value(ID).convertedTo(ColumnType::Long)});
}

Recordset &DE2::Correr(Comando comando, const std::vector<StoreValue> &valores)
{
    Recordset &rs = conjuntos_[comando];
    rs.Close();
    rs = cn_.query(QString::fromUtf16(sql[comando]), valores);
    return rs;
}

void DE2::Fechar_cn() { cn_.Close(); }
