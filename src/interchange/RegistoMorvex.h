// The text file of an earlier release: its lines, and the sixteen fields of one.
#pragma once

#include <array>
#include <QStringList>

namespace registo_morvex
{
constexpr int campos = 16;
constexpr int mais_linhas = 5000; // that a file may have, and fail by one

// The lines of the file, read in its code page; a line ends at CR or CR LF, and a lone LF belongs to it.
// Raises Failure for a file that can't be read or written, for a pipe or a device, and for 5,000 lines or
// more.
QStringList Ler_Linhas(const QString &caminho);

// The records among the lines: all but the first line and the empty ones.
QStringList Registos(const QStringList &linhas);

// The fields of one record, counted from 0. Raises Failure where one of the first fifteen separators is
// missing; the last may be, and its field is empty then.
std::array<QString, campos> Separar(const QString &registo);

// The number of a Portuguese month name in small letters; anything else passes unchanged.
QString Numero_Do_Mes(const QString &mes);
} // namespace registo_morvex
