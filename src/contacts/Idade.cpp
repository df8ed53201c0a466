#include "contacts/Idade.h"

#include "platform/Failure.h"

using namespace Qt::StringLiterals;

namespace
{
// A day or month that is no number counts as 0, which no date has; a year would be one that there was.
QDate Primeiro_Aniversario(const QString &Dia, const QString &Mes, const QString &Ano)
{
    bool ano_e_numero = false;
    const QDate data(Ano.toInt(&ano_e_numero) + 1, Mes.toInt(), Dia.toInt());
    if (!ano_e_numero || !data.isValid())
        throw Failure(Failure::TypeMismatch, u"Idade"_s, u"%1-%2-%3 has no first birthday"_s.arg(Dia, Mes, Ano));
    return data;
}
} // namespace

int Calcular_Idade(const QString &Dia, const QString &Mes, const QString &Ano, QDate hoje)
{
    const QDate nascimento = Primeiro_Aniversario(Dia, Mes, Ano);
    const int anos = hoje.year() - nascimento.year();
    const bool mes_passou = hoje.month() > nascimento.month();
    const bool dia_chegou =
        hoje.month() == nascimento.month() && hoje.toString(u"d"_s) >= nascimento.toString(u"d"_s);
    return mes_passou || dia_chegou ? anos + 1 : anos;
}
