#include "controls/Contrast.h"

#include <algorithm>
#include <cmath>
#include <QPalette>

namespace
{
double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}
} // namespace

double contrast(const QColor &one, const QColor &other)
{
    constexpr double glare = 0.05; // of the room's light on the screen
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + glare) / (darker + glare);
}

QColor mixed(const QColor &from, const QColor &to, double share)
{
    const auto channel = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

QColor lettersOn(const QColor &ground)
{
    return contrast(Qt::white, ground) > contrast(Qt::black, ground) ? Qt::white : Qt::black;
}

QColor readableOn(const QColor &letters, const QColor &ground)
{
    if (contrast(letters, ground) >= readableContrast) return letters;
    constexpr int steps = 20;
    const QColor end = lettersOn(ground);
    for (int step = 1; step < steps; ++step)
        if (const QColor colour = mixed(letters, end, double(step) / steps);
            contrast(colour, ground) >= readableContrast)
            return colour;
    return end;
}

void setGround(QPalette &palette, const QColor &ground)
{
    const QColor letters = lettersOn(ground);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, ground);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(role, letters);
}
