#include "data/TextosDoServidor.h"

#include "data/DE.h"
#include "data/Textos.h"
#include "platform/Failure.h"
#include "store/Row.h"

using namespace Qt::StringLiterals;

namespace
{
QHash<qint64, std::optional<QString>> Perguntar(DE &de, const char *coluna)
{
    QHash<qint64, std::optional<QString>> textos;
    de.Percorrer_Textos([&](const Row &linha) {
        const Field texto = linha.field(linha.column(coluna));
        const Field numero = linha.field(linha.column("ID"));
        if (!numero.isNull() && !textos.contains(numero.number()))
            textos.insert(numero.number(), texto.isNull() ? std::nullopt : std::optional(texto.text()));
    });
    return textos;
}
} // namespace

// What a server refuses it will go on refusing; one that is away is asked again.
void TextosDoServidor::Pedir(DE &de, const char *coluna)
{
    if (coluna_ == QLatin1StringView(coluna)) return;
    textos_.clear();
    try {
        textos_ = Perguntar(de, coluna);
        coluna_ = QLatin1StringView(coluna);
    } catch (const Failure &falha) {
        coluna_ = falha.kind() == Failure::Kind::Other ? QString(QLatin1StringView(coluna)) : QString();
    }
}

QString TextosDoServidor::Ler(DE &de, int numero, const char *coluna)
{
    Pedir(de, coluna);
    const auto lido = textos_.constFind(numero);
    const auto texto = lido == textos_.cend() ? Texto_Do_Programa(numero, QLatin1StringView(coluna)) : *lido;
    if (texto) return *texto;
    throw Failure(lido == textos_.cend() ? Failure::NoCurrentRecord : Failure::InvalidUseOfNull,
                  QLatin1StringView(coluna), u"There is no text %1"_s.arg(numero));
}

QHash<qint64, QString> TextosDoServidor::Todos(DE &de, const char *coluna)
{
    Pedir(de, coluna);
    QHash<qint64, QString> todos;
    for (auto texto = textos_.cbegin(); texto != textos_.cend(); ++texto)
        if (*texto) todos.insert(texto.key(), **texto);
    return todos;
}
