#include "data/Geral.h"

#include "data/Idiomas.h"
#include "data/Textos.h"
#include "platform/ProgramFolder.h"
#include "store/Row.h"

Geral::Geral(const QString &pasta)
    : Pasta(pasta),
      de(CaminhoBD, pasta),
      ini(pasta),
      rascunhos(fileIn(pasta, QStringLiteral("rascunho.json")))
{
}

QString Geral::Ler_Idioma(qint16 id)
{
    const Idioma *idioma = idiomas::Procurar(IdiomaActual);
    if (idioma == nullptr) return {};
    if (de.Num_Servidor()) return textos_.Ler(de, id, idioma->coluna);
    Recordset &rs = de.Abrir("cmdLerIdioma", {QString::number(id)});
    const auto acrescentado =
        rs.Eof() ? Texto_Acrescentado(id, QLatin1StringView(idioma->coluna)) : std::nullopt;
    QString texto = acrescentado ? *acrescentado : rs.Fields(idioma->coluna).text();
    rs.Close();
    return texto;
}

QHash<qint64, QString> Geral::Ler_Todo_O_Idioma()
{
    const Idioma *idioma = idiomas::Procurar(IdiomaActual);
    if (idioma == nullptr) return {};
    if (de.Num_Servidor()) return textos_.Todos(de, idioma->coluna);
    QHash<qint64, std::optional<QString>>
        lidos; // of two rows with one number the first counts, even a Null one
    de.Percorrer_Textos([&](const Row &linha) {
        const Field texto = linha.field(linha.column(idioma->coluna));
        const Field numero = linha.field(linha.column("ID"));
        if (!numero.isNull() && !lidos.contains(numero.number()))
            lidos.insert(numero.number(), texto.isNull() ? std::nullopt : std::optional(texto.text()));
    });
    QHash<qint64, QString> textos;
    for (auto lido = lidos.cbegin(); lido != lidos.cend(); ++lido)
        if (*lido) textos.insert(lido.key(), **lido);
    return textos;
}

QString Geral::Ficheiro(const QString &nome) const { return fileIn(Pasta, nome); }
