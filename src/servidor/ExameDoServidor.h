// What an administrator asks now and then: whether the database on the server is as the program needs it.
#pragma once

#include <QStringList>

class ServerSession;

namespace exame
{
enum class Defeito {
    Numero,   // the database is older or newer than the program
    Tabela,   // one is missing, or a column of it
    Gatilho,  // one is missing or switched off
    Contador, // one is missing
    Ordem,    // the server's order of letters is another one since the indexes were made
    Letras,   // the server compares letters otherwise than the file
    Direitos, // the desks may less than they need, or more
    Textos,   // the program carries texts that the database lacks
    Codigo,   // the database does not keep every letter
};

struct Achado {
    Defeito defeito;
    QString onde; // a name, or a text for an administrator
};

// Reads alone. Empty where all is well. Raises Failure for a database that is none of this program's.
QList<Achado> Examinar(ServerSession &servidor, const QString &posto);
} // namespace exame
