#include "data/ReadWriteINI.h"

#include "platform/ProgramFolder.h"

ReadWriteINI::ReadWriteINI(const QString &pasta) : ficheiro_(fileIn(pasta, QStringLiteral("config.ini"))) {}

QString ReadWriteINI::Ler_Ini(const QString &seccao, const QString &chave)
{
    if (!ficheiro_.exists()) Escrever_Ini(seccao, chave, QString());
    return ficheiro_.read(seccao, chave);
}

void ReadWriteINI::Escrever_Ini(const QString &seccao, const QString &chave, const QString &valor)
{
    ficheiro_.write(seccao, chave, valor);
}
