// An older database, opened for reading: this program's own kind, or the kind that the releases before it
// wrote. Its kind is told by its first bytes, whatever it is called. Eight commands read it; nothing writes.
#pragma once

#include "platform/store/Connection.h"

#include <array>
#include <QString>

class DE2
{
public:
    enum Comando {
        Morvex5_SELECT_TblLista,
        Morvex5_Count_Registos,
        Morvex5_SELECT_TblGrupos, // takes an ID
        Morvex5_SELECT_TblMemos,
        Morvex5_SELECT_TblUsers, // takes an ID
        Morvex5_Count_Memos,
        Morvex5_SELECT_TblTarefas,
        Morvex5_Count_Tarefas,
        Comandos
    };

    // Raises Failure for a file that can't be opened: no database, a damaged one, or one with a password. Of
    // a damaged file that opens, the commands over a damaged table fail.
    explicit DE2(const QString &caminho);

    // Closes the command's recordset if it is open, and opens it anew.
    Recordset &Abrir(Comando comando);
    Recordset &Abrir(Comando comando, const QString &ID);

    // The connection closed, every command fails.
    void Fechar_cn();

private:
    Recordset &Correr(Comando comando, const std::vector<StoreValue> &valores);
    void Abrir_Proprio(const QString &caminho);
    void Carregar_Antigo(const QString &caminho);

    Connection cn_;
    std::array<Recordset, Comandos> conjuntos_;
};
