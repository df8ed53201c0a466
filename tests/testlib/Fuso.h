// The time zone of a process.
#pragma once

#include <ctime>
#include <QByteArray>

namespace fuso
{
inline void Lisboa()
{
    qputenv("TZ", "Europe/Lisbon");
    tzset();
}
} // namespace fuso
