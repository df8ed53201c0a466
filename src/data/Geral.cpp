#include "data/Geral.h"

#include "data/Idiomas.h"
#include "data/Textos.h"
#include "platform/ProgramFolder.h"

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
    Recordset &rs = de.Abrir("cmdLerIdioma", {QString::number(id)});
    const auto acrescentado =
        rs.Eof() ? Texto_Acrescentado(id, QLatin1StringView(idioma->coluna)) : std::nullopt;
    QString texto = acrescentado ? *acrescentado : rs.Fields(idioma->coluna).text();
    rs.Close();
    return texto;
}

QString Geral::Ficheiro(const QString &nome) const { return fileIn(Pasta, nome); }
