#include "session/Titulo.h"

#include "data/Geral.h"

QString Titulo(const Geral &geral)
{
    return QStringLiteral("Morvex %1 %2").arg(geral.VersaoBD, geral.SessaoActual.Utilizador);
}
