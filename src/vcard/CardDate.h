// A birthday of a card, in the ways in which programs write it.
#pragma once

#include <optional>
#include <QString>

struct CardDate {
    int day = 0;   // 1 to 31
    int month = 0; // 1 to 12
    int year = 0;  // 0 where nobody said it

    bool operator==(const CardDate &) const = default;
};

// The date of "1975-03-04", "19750304", "1975-3-4", "--0304" and "--03-04", whatever time stands behind it.
// 1604 is the year of programs that cannot leave it out. Nothing for what is no date.
std::optional<CardDate> cardDate(const QString &text);

// As a card of version 3.0 or 4.0 has it: "1975-03-04", without a year "1604-03-04" or "--0304".
QString cardDateText(const CardDate &date, bool isVersion4);
