// The one place that knows what time it is. Everything else asks here, so a test can hold the clock still.
#pragma once

#include <QDateTime>

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0; // local time

    QDate today() const { return now().date(); }
};

class SystemClock final : public Clock
{
public:
    QDateTime now() const override;
};
