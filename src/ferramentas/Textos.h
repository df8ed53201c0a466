// The table of the program's texts, as translators edit it.
#pragma once

#include <QList>
#include <QStringList>

// The lines of that file, the head first, each split into its cells. Failure where there is no such file.
QList<QStringList> Ler_Textos(const QString &caminho);
