// How the words of the stores differ, for whoever puts a statement together from names and expressions.
#pragma once

#include <QString>

struct Dialect {
    QString (*name)(const QString &tableOrColumn); // as an identifier
    QString (*asText)(const QString &expression);  // as a text, and Null as the empty one
    QString byOurOrder; // behind a text expression: without case, in the order of names
    QString rowOrder;   // what rows of one table came in
};
