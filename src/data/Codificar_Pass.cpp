#include "data/Codificar_Pass.h"

namespace
{
constexpr QStringView simbolos = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr QStringView trocados = u"bTLORIdDmsC6oyFiJ9tBQnGqKZ4g1Ncju2E0AphSPVzW3UX5xk7aevfMYwrlH8";
static_assert(simbolos.size() == trocados.size());
} // namespace

QString Codificar_Pass(const QString &simples)
{
    QString codificada = simples;
    for (QChar &letra : codificada)
        if (const qsizetype lugar = simbolos.indexOf(letra); lugar >= 0) letra = trocados[lugar];
    return codificada;
}
