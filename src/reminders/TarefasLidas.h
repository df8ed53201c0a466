// The user's tasks of a server that are due by tomorrow, as they were last read: a server is not asked each second,
// and while it is away the alarm goes on from here.
#pragma once

#include "store/Connection.h"

#include <QDateTime>

class Clock;
class Geral;

class TarefasLidas
{
public:
    TarefasLidas(Geral &geral, const Clock &relogio) : geral_(geral), relogio_(relogio) {}

    // Reads them anew where a minute has gone by, this desk has written something, another user is at it, or
    // they were given up. What can't be read stays as it was.
    void Por_Em_Dia();

    // They may be others by now: the next question is one to the server.
    void Largar() { pedidas_ = {}; }

    // On the first row, in the order in which they fall due: a copy of one's own.
    Recordset Linhas() const { return linhas_; }

    // Whether the row is due at that moment, day and time of day; or of a day before, whatever its time.
    static bool Vencida(const Recordset &linha, const QDateTime &agora);
    static bool De_Um_Dia_Anterior(const Recordset &linha, const QDateTime &agora);

private:
    bool Ainda_Servem(const QDateTime &agora) const;
    void Ler(const QDateTime &agora);

    Geral &geral_;
    const Clock &relogio_;
    Recordset linhas_;
    QDateTime pedidas_; // when they were last asked for; none: they must be
    QString Utilizador_;
    Connection::Mark marca_;
};
