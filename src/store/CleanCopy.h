// Copies of a database file that can be relied on.
#pragma once

class QString;

// Writes a clean, compact copy of a database that nobody writes to at the moment, and checks it from end to
// end. Raises Failure if the copy exists already, could not be written, or is not sound.
void compactDatabase(const QString &source, const QString &copy);

// Whether two paths lead to one file, as they may through a link or in a folder that tells no capitals apart.
bool isSameFile(const QString &a, const QString &b);

// Copies a file over an earlier one of that name, in one step: the earlier one is there until the new one is
// whole. Raises Failure where that is impossible, and where both are the same file under two names.
void copyOver(const QString &source, const QString &target);
