// How a server comes to compare letters without case exactly as the file does: by the small letters that it
// makes itself, but for a few that are handled one by one. Which ones differs from release to release, so it
// is asked.
#pragma once

#include <QHash>
#include <QString>
#include <vector>

class ServerSession;

// What a server makes of the letters that it makes small at all.
struct LetrasPequenas {
    QString ordem; // the collation by whose rules: of the server, never of the machine's language
    QHash<char16_t, char16_t> pequenas;
};
LetrasPequenas Letras_Pequenas_De(ServerSession &servidor);

// The letters at which both differ.
struct Dobra {
    QString diferentes; // a text that has none of them needs no more than its small letters
    QString antes;      // these are taken out of the way before,
    QString guardadas;  // as these
    QString depois;     // and these, once all are small,
    QString dobradas;   // become these
};
Dobra Dobra_De(const LetrasPequenas &letras);

// The function morvex_dobrar(text): two texts are equal but for their case where it gives the same.
QString Sql_Dobrar(const QString &ordem, const Dobra &dobra);
