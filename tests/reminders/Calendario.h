// The date step of a repetition by the calendar of the standard library, which shares nothing with the
// toolkit's that the program counts by.
#pragma once

#include <chrono>
#include <QDate>
#include <QString>

namespace calendario
{
namespace civil = std::chrono;

inline civil::year_month_day Civil(QDate data)
{
    return civil::year(data.year()) / civil::month(static_cast<unsigned>(data.month())) /
           civil::day(static_cast<unsigned>(data.day()));
}

inline QDate Data(civil::year_month_day dia)
{
    return {static_cast<int>(dia.year()), static_cast<int>(static_cast<unsigned>(dia.month())),
            static_cast<int>(static_cast<unsigned>(dia.day()))};
}

// A day that the month does not have gives way to its last one.
inline civil::year_month_day Cortada(civil::year_month_day dia)
{
    return dia.ok() ? dia : dia.year() / dia.month() / civil::last;
}

inline QDate Data_Seguinte(const QString &IDRepeticao, QDate data)
{
    const civil::year_month_day dia = Civil(data);
    if (IDRepeticao == u"2") return Data(civil::sys_days(dia) + civil::days(1));
    if (IDRepeticao == u"3") return Data(civil::sys_days(dia) + civil::days(7));
    if (IDRepeticao == u"4") return Data(Cortada(dia + civil::months(1)));
    return Data(Cortada(dia + civil::years(1)));
}
} // namespace calendario
