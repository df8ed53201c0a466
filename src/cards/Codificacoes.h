// The encodings that a person can choose for a foreign file of contacts, by where they are used.
#pragma once

#include <array>
#include <QByteArray>
#include <QString>

namespace codificacoes
{
inline constexpr std::array nomes{"utf-8",        "utf-16",       "utf-16le",     "utf-16be",
                                  "windows-1252", "ISO-8859-15",  "windows-1250", "windows-1251",
                                  "KOI8-R",       "windows-1253", "windows-1254", "windows-1255",
                                  "windows-1256", "windows-1257", "macintosh",    "Shift_JIS",
                                  "EUC-JP",       "GB18030",      "Big5",         "EUC-KR"};

// "Europa Central (windows-1250)" in that language. What readCsv has found out has a word too.
QString Palavra(const QByteArray &codificacao, const QString &idioma);

// That of a choice among which the first is "found out by itself", which is the empty one.
QByteArray Do_Lugar(int lugar);
} // namespace codificacoes
