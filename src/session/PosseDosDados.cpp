#include "session/PosseDosDados.h"

#include "data/Geral.h"

void Entregar_Tudo(Geral &geral, const QString &IdUtilizador)
{
    geral.de.Executar("cmdUpdateMemos", {IdUtilizador});
    geral.de.Executar("cmdUpdateTarefas", {IdUtilizador});
    geral.de.Executar("cmdUpdateEmails", {IdUtilizador});
    geral.de.Executar("cmdUpdateGrupos", {IdUtilizador});
}
