// The two operations over config.ini, the file of settings beside the program.
#pragma once

#include "platform/IniFile.h"

#include <optional>

class ReadWriteINI
{
public:
    explicit ReadWriteINI(const QString &pasta);

    // The key's value, empty if it isn't there. A file that is absent is created with this very key, empty.
    QString Ler_Ini(const QString &seccao, const QString &chave);

    // The same for many keys of one moment: the file is read at the first of them, and no more.
    class Leitura
    {
    public:
        explicit Leitura(ReadWriteINI &ini) : ini_(ini) {}
        QString Ler_Ini(const QString &seccao, const QString &chave);

    private:
        ReadWriteINI &ini_;
        std::optional<IniFile::Reading> lida_;
    };

    // Writes one key. Silent where the file can't be written: the setting then lives as long as the process.
    void Escrever_Ini(const QString &seccao, const QString &chave, const QString &valor);

private:
    void Criar_Se_Faltar(const QString &seccao, const QString &chave);

    IniFile ficheiro_;
};
