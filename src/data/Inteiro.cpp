#include "data/Inteiro.h"

#include "platform/Failure.h"

#include <limits>
#include <QString>

qint16 Inteiro(const QString &texto)
{
    bool numero = false;
    const qlonglong valor = texto.toLongLong(&numero);
    if (!numero)
        throw Failure(Failure::TypeMismatch, texto, QStringLiteral("\"%1\" is no whole number").arg(texto));
    using limites = std::numeric_limits<qint16>;
    if (valor < limites::min() || valor > limites::max())
        throw Failure(Failure::OutOfMemoryOrRange, texto,
                      QStringLiteral("%1 does not fit 16 bits").arg(texto));
    return static_cast<qint16>(valor);
}
