// The user's mail program as the registry of a Windows desktop names it.
#pragma once

class QString;
class Registry;

// The program that mail addresses are opened with, without a letter in it: a path. Read from a command of the
// form of a quote, the word that stands for the folder of programs, and a path below it; that folder is put
// in front. A command of another form gives a path that leads nowhere; empty where a value is missing.
QString programOfMailAddresses(Registry &registry);

// The command line by which the program that was chosen for mail starts without a letter. Empty where none
// was.
QString commandOfMailClient(Registry &registry);
