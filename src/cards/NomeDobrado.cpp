#include "cards/NomeDobrado.h"

#include "csv/CsvHeaders.h"

#include <algorithm>

namespace
{
// Letters that are no letter and a mark, whatever they look like.
constexpr bool E_Letra_Propria(QChar sinal)
{
    return sinal == u'ø' || sinal == u'Ø' || sinal == u'ł' || sinal == u'Ł';
}
} // namespace

QString Nome_Dobrado(const QString &nome)
{
    if (std::none_of(nome.begin(), nome.end(), E_Letra_Propria)) return CsvHeaders::folded(nome);
    QString simples = nome;
    simples.replace(QChar(u'ø'), QChar(u'o')).replace(QChar(u'Ø'), QChar(u'o'));
    simples.replace(QChar(u'ł'), QChar(u'l')).replace(QChar(u'Ł'), QChar(u'l'));
    return CsvHeaders::folded(simples);
}
