// Makes a database file where there is none. The program itself never does: its database is shipped.
#pragma once

#include <QStringList>

// Creates the file and runs the statements in it, which stand for so many steps of the schema. Raises Failure if the file
// is there already or a statement fails.
void createDatabase(const QString &path, const QStringList &statements, int schemaNumber = 0);
