// Pipes have a place of their own here, and only an administrator makes links that programs follow unasked. A
// second name of one file anybody can give.
#pragma once

#include <filesystem>
#include <QFile>
#include <QString>

namespace outros_nomes
{
constexpr bool ha_tubos = false;
constexpr bool ha_atalhos = false;
constexpr bool ha_nomes_com_barra = false;
constexpr bool ha_sockets = false;
constexpr int muitos_ficheiros = 400; // as fit on one command line

inline bool Fazer_Tubo(const QString &) { return false; }
inline bool Fazer_Atalho(const QString &, const QString &) { return false; }
inline bool Fazer_Segundo_Nome(const QString &de, const QString &caminho)
{
    std::error_code falha;
    std::filesystem::create_hard_link(de.toStdU16String(), caminho.toStdU16String(), falha);
    return !falha;
}
// Folders tell no capitals apart here.
inline bool Como_Sem_Maiusculas(const QString &, const QString &caminho) { return QFile::exists(caminho); }
} // namespace outros_nomes
