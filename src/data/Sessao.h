// The user of this process: who is at the keyboard, and what he or she may do.
#pragma once

#include <QString>

struct Sessao {
    QString Utilizador;                           // login name; empty while nobody has logged in
    QString IdUtilizador = QStringLiteral("0");   // TblUsers.ID in decimal, the owner in every command
    bool PedirPassSystemTray = false;             // a preference: ask for the password when coming back
    bool Adicionar = false;
    bool Editar = false;
    bool Eliminar = false;
    bool Grupos = false;
    bool Utilizadores = false;
};

class Recordset;

// As the current row of TblUsers has it. Failure for a cell that is Null where it may not be.
Sessao Sessao_Da_Linha(const Recordset &rs);
