#include "data/Sessao.h"

#include "store/Recordset.h"

Sessao Sessao_Da_Linha(const Recordset &rs)
{
    return {.Utilizador = rs.Fields("Utilizador").textOrEmpty(),
            .IdUtilizador = rs.Fields("ID").text(),
            .PedirPassSystemTray = rs.Fields("SystemTray").yes(),
            .Adicionar = rs.Fields("Adicionar").yes(),
            .Editar = rs.Fields("Editar").yes(),
            .Eliminar = rs.Fields("Eliminar").yes(),
            .Grupos = rs.Fields("Grupos").yes(),
            .Utilizadores = rs.Fields("Utilizadores").yes()};
}
