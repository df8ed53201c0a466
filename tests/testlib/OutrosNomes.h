// Files that are there under a second name, and those that are none: links and pipes in a folder.
#pragma once

#include <QFile>
#include <QString>
#include <sys/stat.h>
#include <unistd.h>

namespace outros_nomes
{
// False on a system whose folders hold no such thing: the test is skipped then.
constexpr bool ha_tubos = true;
constexpr bool ha_atalhos = true;
constexpr bool ha_nomes_com_barra = true; // one to the left
constexpr bool ha_sockets = true;
constexpr int muitos_ficheiros = 5000; // as fit on one command line

// Each tells whether it was made.
inline bool Fazer_Tubo(const QString &caminho)
{
    return ::mkfifo(qPrintable(caminho), S_IRUSR | S_IWUSR) == 0;
}
inline bool Fazer_Atalho(const QString &de, const QString &caminho) { return QFile::link(de, caminho); }
inline bool Fazer_Segundo_Nome(const QString &de, const QString &caminho)
{
    return ::link(qPrintable(de), qPrintable(caminho)) == 0;
}
// The same file under a name that differs by capitals alone, as a folder that tells none apart would show it.
inline bool Como_Sem_Maiusculas(const QString &de, const QString &caminho)
{
    return Fazer_Atalho(de, caminho);
}
} // namespace outros_nomes
