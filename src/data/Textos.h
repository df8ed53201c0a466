// The table of the program's texts, as translators edit it. The program carries it with it, for databases
// that are older than some of its texts.
#pragma once

#include <functional>
#include <optional>
#include <QList>
#include <QStringList>

class Connection;

// The lines of that file, the head first, each split into its cells. Failure where there is no such file.
QList<QStringList> Ler_Textos(const QString &caminho);

// The same of the table that the program carries.
const QList<QStringList> &Textos_Do_Programa();

// Adds those lines to TblIdiomas whose number is wanted. Raises Failure for a line with too few or too many
// cells.
void Inserir_Textos(Connection &ligacao, QList<QStringList> linhas, const std::function<bool(int)> &quer);

// From this number on an older database may lack a text. Those before it came with every database, and where
// one is gone somebody has taken it out.
inline constexpr int primeiro_texto_acrescentado = 274;

// A text as the program carries it; nothing for a number that it doesn't know. The language by its column.
std::optional<QString> Texto_Do_Programa(int numero, const QString &coluna);

// The same of those that an older database may lack; nothing for any other number.
std::optional<QString> Texto_Acrescentado(int numero, const QString &coluna);
