#include "cards/NomeDobrado.h"

#include "csv/CsvHeaders.h"

QString Nome_Dobrado(const QString &nome)
{
    // Letters that are no letter and a mark, whatever they look like.
    QString simples = nome;
    simples.replace(QChar(u'ø'), QChar(u'o')).replace(QChar(u'Ø'), QChar(u'o'));
    simples.replace(QChar(u'ł'), QChar(u'l')).replace(QChar(u'Ł'), QChar(u'l'));
    return CsvHeaders::folded(simples);
}
