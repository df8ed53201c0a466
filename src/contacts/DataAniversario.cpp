#include "contacts/DataAniversario.h"

#include <QDate>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
constexpr int primeiro_ano = 100;
constexpr int ano_bissexto = 2000; // stands for a year that isn't told: it has every day that any year has

bool Data_Valida(const QString &Dia, const QString &Mes, int ano)
{
    static const QRegularExpression um_ou_dois_algarismos(u"^[0-9]{1,2}\\z"_s);
    return um_ou_dois_algarismos.match(Dia).hasMatch() && um_ou_dois_algarismos.match(Mes).hasMatch() &&
           QDate::isValid(ano, Mes.toInt(), Dia.toInt());
}
} // namespace

bool Aniversario_Valido(const QString &Dia, const QString &Mes, const QString &Ano)
{
    static const QRegularExpression quatro_algarismos(u"^[0-9]{4}\\z"_s);
    if (Dia.isEmpty() && Mes.isEmpty() && Ano.isEmpty()) return true;
    if (Ano.isEmpty()) return Data_Valida(Dia, Mes, ano_bissexto);
    return quatro_algarismos.match(Ano).hasMatch() && Ano.toInt() >= primeiro_ano &&
           Data_Valida(Dia, Mes, Ano.toInt());
}
