// The two operations over config.ini, the file of settings beside the program.
#pragma once

#include "platform/IniFile.h"

class ReadWriteINI
{
public:
    explicit ReadWriteINI(const QString &pasta);

    // The key's value, empty if it isn't there. A file that is absent is created with this very key, empty.
    QString Ler_Ini(const QString &seccao, const QString &chave);

    // Writes one key. Silent where the file can't be written: the setting then lives as long as the process.
    void Escrever_Ini(const QString &seccao, const QString &chave, const QString &valor);

private:
    IniFile ficheiro_;
};
