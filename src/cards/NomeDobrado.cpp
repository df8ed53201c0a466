#include "cards/NomeDobrado.h"

#include "csv/CsvHeaders.h"

QString Nome_Dobrado(const QString &nome)
{
    // Letters that are no letter and a mark, whatever they look like.
    QString simples = nome.toLower();
    simples.replace(QChar(u'ø'), QChar(u'o')).replace(QChar(u'ł'), QChar(u'l'));
    return CsvHeaders::folded(simples);
}
