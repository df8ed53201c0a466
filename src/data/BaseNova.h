// A database file made anew: the tables, the one row of TblConfig, the texts.
#pragma once

#include <QList>
#include <QStringList>

namespace base_nova
{
// The statements that make a file with all tables, and none of its rows.
QStringList Sql_Criar();

// Makes the file, with the texts of such lines (Ler_Textos). Raises Failure where it is there already.
void Criar(const QString &destino, const QString &versao, const QList<QStringList> &textos);
} // namespace base_nova
