#include "data/Textos.h"

#include "data/Esquema.h"
#include "platform/Failure.h"
#include "store/Connection.h"

#include <QFile>

using namespace Qt::StringLiterals;

static void Anunciar_Textos()
{
    Q_INIT_RESOURCE(textos);
} // a library's data announce themselves only when asked to

QList<QStringList> Ler_Textos(const QString &caminho)
{
    QFile ficheiro(caminho);
    if (!ficheiro.open(QIODevice::ReadOnly))
        throw Failure(Failure::FileNotFound, caminho, u"The texts were not found: %1"_s.arg(caminho));
    QList<QStringList> linhas;
    for (const QString &linha : QString::fromUtf8(ficheiro.readAll()).split(u'\n', Qt::SkipEmptyParts))
        linhas << linha.split(u'\t');
    return linhas;
}

const QList<QStringList> &Textos_Do_Programa()
{
    static const QList<QStringList> linhas = [] {
        Anunciar_Textos();
        return Ler_Textos(u":/textos/TblIdiomas.tsv"_s);
    }();
    return linhas;
}

// The column Uso is the translators' own and stays out.
void Inserir_Textos(Connection &ligacao, QList<QStringList> linhas, const std::function<bool(int)> &quer)
{
    const auto uso = linhas.constFirst().indexOf(u"Uso"_s);
    for (QStringList &linha : linhas)
        linha.removeAt(uso);
    const QStringList colunas = linhas.takeFirst();
    const QString sql = u"INSERT INTO TblIdiomas (%1) VALUES (%2)"_s.arg(
        colunas.join(u", "_s), QStringList(colunas.size(), u"?"_s).join(u", "_s));
    for (const QStringList &linha : linhas) {
        if (linha.size() != colunas.size())
            throw Failure(Failure::StoreError, linha.join(u'\t'), u"A row with %1 cells"_s.arg(linha.size()));
        if (!quer(linha.constFirst().toInt())) continue;
        std::vector<StoreValue> valores;
        for (qsizetype i = 0; i < linha.size(); ++i)
            valores.push_back(
                Value(linha[i]).convertedTo(esquema::Tipo("TblIdiomas", colunas[i].toStdString())));
        ligacao.execute(sql, valores);
    }
}

std::optional<QString> Texto_Do_Programa(int numero, const QString &coluna)
{
    const QList<QStringList> &linhas = Textos_Do_Programa();
    const auto lingua = linhas.constFirst().indexOf(coluna);
    const QString procurado = QString::number(numero);
    for (const QStringList &linha : linhas)
        if (linha.constFirst() == procurado && lingua >= 0) return linha.value(lingua);
    return std::nullopt;
}

std::optional<QString> Texto_Acrescentado(int numero, const QString &coluna)
{
    return numero < primeiro_texto_acrescentado ? std::nullopt : Texto_Do_Programa(numero, coluna);
}
