// The user's mail program, found the way that desktops keep it.
#pragma once

#include <QStringList>

// The command of a desktop entry: program and arguments, without the places for addresses and without the
// options that would open an empty letter. Empty where the file is no such entry.
QStringList mailProgramCommand(const QString &desktopEntry);

// Asks the desktop which program handles mail and starts it. Returns at once; where there is none, nothing
// happens.
void startMailProgram();
