// The tables of the schema on a server, and what stands beside them there because several desks share them:
// counters without gaps, notices of changes, versions of rows, rights. Only statements; ServidorNovo runs
// them.
#pragma once

#include "data/Esquema.h"

#include <QStringList>

namespace esquema_no_servidor
{
// A table in the form that it has there: in lower case, as statements without quotes name it.
QString Nome(const Tabela &tabela);

// Whether rows of the table tell by a number, "versao", how often a person changed them.
bool Com_Versao(const Tabela &tabela);

// The column with the counter; empty for a table without one.
QString Contador(const Tabela &tabela);

// Once, in an empty database: the order of texts.
QString Sql_Ordem();

// The table, without what stands beside it.
QString Sql_Tabela(const Tabela &tabela);

// The tables of the server's own, where they are missing: the number of the schema's step, the counters, and
// the keys of writes, by which a desk that lost the answer finds out whether the server has done what it
// sent.
QStringList Sql_Proprias();

// What may be said again at any time, all of it over tables that are there: functions, triggers, indexes.
QStringList Sql_Funcoes();
QStringList Sql_De(const Tabela &tabela);

// What a desk's role may do in that database, and no more.
QStringList Sql_Direitos(const QString &base, const QString &posto);

// How long the server waits for a desk that is gone.
QStringList Sql_Prazos(const QString &base);
} // namespace esquema_no_servidor
