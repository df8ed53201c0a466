// The program's database on a server: made, and brought up to date. All of it runs in the caller's
// transaction.
#pragma once

#include <QString>

class ServerSession;

namespace base_no_servidor
{
// Of the newest step that the database has had; -1 where it is none of this program's.
int Numero(ServerSession &servidor);

// Makes the tables, empty but for nothing, and all that stands beside them. The role of the desks must be
// there, and is none that owns the database. Raises Failure for a database that is not empty, that does not
// keep every letter, or where that role is missing.
void Criar(ServerSession &servidor, const QString &posto);

struct Acerto {
    int antes = 0;  // the number before,
    int depois = 0; // and now
    int textos = 0; // that were added
    bool ordem =
        false; // the server's order of letters was another one since, so that the indexes were made anew
};
// Takes the missing steps, adds the missing texts, and says functions, triggers, indexes and rights once
// more. Raises Failure for a database that is none of this program's or has had steps that it does not know.
Acerto Por_Em_Dia(ServerSession &servidor, const QString &posto);

// The texts that the program carries and the database lacks. Returns how many.
int Trazer_Textos(ServerSession &servidor);
} // namespace base_no_servidor
