// How a task moves on when its ring is acknowledged.
#pragma once

#include <optional>
#include <QDate>
#include <QString>

// TblRepeticao.ID in digits.
inline constexpr char16_t sem_repeticao[] = u"1";

// The date one period behind the stored one: a day for "2", a week for "3", a month for "4", a year for "5",
// and nothing for any other text. A day that the target month does not have becomes its last one, and is not
// remembered: 31 January goes to 28 February and stays on the 28th.
std::optional<QDate> Data_Seguinte(const QString &IDRepeticao, QDate data);
