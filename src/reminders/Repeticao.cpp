#include "reminders/Repeticao.h"

std::optional<QDate> Data_Seguinte(const QString &IDRepeticao, QDate data)
{
    constexpr int dias_da_semana = 7;
    if (IDRepeticao == u"2") return data.addDays(1);
    if (IDRepeticao == u"3") return data.addDays(dias_da_semana);
    if (IDRepeticao == u"4") return data.addMonths(1);
    if (IDRepeticao == u"5") return data.addYears(1);
    return std::nullopt;
}
