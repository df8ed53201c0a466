#include "session/Sair.h"

#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QWidget>

namespace
{
bool Confirma_Com_Tarefas(Geral &geral, Platform &platform, QWidget *dono)
{
    const QString aviso = geral.Ler_Idioma(225) + QLatin1String("\r\n") + geral.Ler_Idioma(226) +
                          QLatin1String("\r\n") + geral.Ler_Idioma(227);
    return platform.boxes.show(aviso, box::exclamation | box::yesNo, dono->windowTitle(), dono) ==
           answer::yes;
}

// While the server is away nobody knows of tasks, and nobody is held here.
bool Ha_Servidor(Geral &geral)
{
    try {
        geral.de.Abrir("cmdListarTarefas", {geral.SessaoActual.IdUtilizador});
    } catch (const Failure &falha) {
        if (falha.kind() == Failure::Kind::ServerLost) return false;
        throw;
    }
    return true;
}

bool Confirma(Geral &geral, Platform &platform, QWidget *dono)
{
    if (!Ha_Servidor(geral)) return true;
    Recordset &rs = geral.de.Rs("cmdListarTarefas");
    const bool sai = rs.RecordCount() == 0 || Confirma_Com_Tarefas(geral, platform, dono);
    rs.Close();
    return sai;
}
} // namespace

void Sair(Geral &geral, Platform &platform, QWidget *dono)
{
    endOnFailure(platform.boxes, platform.process, [&] {
        if (!Confirma(geral, platform, dono)) return;
        platform.tray.remove(Tray::Look::Picture1);
        platform.tray.remove(Tray::Look::Picture2);
        platform.process.end();
    });
}
