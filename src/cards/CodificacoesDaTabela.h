// The encodings that a person can choose for a foreign table, by where they are used.
#pragma once

#include <array>
#include <QByteArray>
#include <QString>

namespace codificacoes_da_tabela
{
inline constexpr std::array nomes{"utf-8",        "utf-16",       "windows-1252", "windows-1250",
                                  "windows-1251", "windows-1253", "windows-1254", "windows-1255",
                                  "windows-1256", "windows-1257", "macintosh",    "Shift_JIS",
                                  "GB18030",      "EUC-KR"};

// "Europa Central (windows-1250)" in that language. What readCsv has found out has a word too.
QString Palavra(const QByteArray &codificacao, const QString &idioma);
} // namespace codificacoes_da_tabela
