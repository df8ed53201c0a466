// All that a file holds, moved to an empty database on a server: rows with their numbers, counters, pictures,
// cards.
#pragma once

#include <functional>
#include <QList>
#include <QString>

class ServerSession;

namespace mudanca
{
struct Contagem {
    QString tabela;
    qint64 linhas = 0;
};

// The file is only read, and waits for nobody; the tables are made first where the database has none. Runs in
// the caller's transaction. Raises Failure, before anything is kept, for a database that holds contacts or
// anything else of a person's, for one of a newer program on either side, and for what no server keeps: a
// character U+0000, a row without its number. It says where that stands.
QList<Contagem> Mudar(const QString &ficheiro, ServerSession &servidor, const QString &posto);
} // namespace mudanca
