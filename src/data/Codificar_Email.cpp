#include "data/Codificar_Email.h"

namespace
{
constexpr QStringView simbolos = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr QStringView trocados = u"jU9cEygA6LkDfbP2dw8pStCZml3Q5KIuasoMnhvxYX0RezNHTi41BGJWFrV7Oq";
static_assert(simbolos.size() == trocados.size());

QString Trocar(const QString &texto, QStringView de, QStringView para, QString &saida)
{
    QString trocado;
    for (const QChar letra : texto) {
        if (const qsizetype lugar = de.indexOf(letra); lugar >= 0) saida = para[lugar];
        trocado += saida;
    }
    return trocado;
}
} // namespace

QString Codificar_Email(const QString &simples, QString &saida)
{
    return Trocar(simples, simbolos, trocados, saida);
}

QString Descodificar_Email(const QString &codificada)
{
    QString saida;
    return Trocar(codificada, trocados, simbolos, saida);
}
