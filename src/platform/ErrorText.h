// What an error box says: for what a person can mend, what happened and the way out, in that person's
// language; for the rest the failure's own description. Cut to what can be read, whatever a file or a server
// put into it.
#pragma once

#include <QString>

class Failure;

struct ErrorText {
    QString words;
    QString details; // in small below: number, source, and the description where it isn't said above
};

// The language by its name ("AlemaoDE"); one that is none of the program's reads as English.
ErrorText errorText(const Failure &failure, const QString &language);
