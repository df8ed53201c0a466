#include "data/ReadWriteINI.h"

#include "platform/ProgramFolder.h"

ReadWriteINI::ReadWriteINI(const QString &pasta) : ficheiro_(fileIn(pasta, QStringLiteral("config.ini"))) {}

QString ReadWriteINI::Ler_Ini(const QString &seccao, const QString &chave)
{
    Criar_Se_Faltar(seccao, chave);
    return ficheiro_.read(seccao, chave);
}

QString ReadWriteINI::Leitura::Ler_Ini(const QString &seccao, const QString &chave)
{
    if (!lida_) {
        ini_.Criar_Se_Faltar(seccao, chave);
        lida_ = ini_.ficheiro_.reading();
    }
    return lida_->value(seccao, chave);
}

void ReadWriteINI::Criar_Se_Faltar(const QString &seccao, const QString &chave)
{
    if (!ficheiro_.exists()) Escrever_Ini(seccao, chave, QString());
}

void ReadWriteINI::Escrever_Ini(const QString &seccao, const QString &chave, const QString &valor)
{
    ficheiro_.write(seccao, chave, valor);
}
