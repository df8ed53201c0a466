// Twips and colour numbers: the units in which forms, notes and the database speak. Twips are those of the
// forms as they are drawn; how many of them a pixel holds is the matter of the scale.
#pragma once

#include "controls/Scale.h"

#include <cmath>
#include <QColor>
#include <QRect>

constexpr int twipsPerPixel = 15; // at the standard, and of a picture's own pixels

inline int pixels(double twips)
{
    return static_cast<int>(std::lround(twips * scale::factor() / twipsPerPixel));
}
inline int twips(int pixels)
{
    return static_cast<int>(std::lround(pixels * twipsPerPixel / scale::factor()));
}

inline QRect pixelRect(double left, double top, double width, double height)
{
    return {pixels(left), pixels(top), pixels(width), pixels(height)};
}

// A colour number is 0x00BBGGRR.
constexpr QColor colour(unsigned number)
{
    return {static_cast<int>(number & 0xff), static_cast<int>((number >> 8) & 0xff),
            static_cast<int>((number >> 16) & 0xff)};
}

inline unsigned colourNumber(const QColor &colour)
{
    return static_cast<unsigned>(colour.red()) | static_cast<unsigned>(colour.green()) << 8 |
           static_cast<unsigned>(colour.blue()) << 16;
}

constexpr unsigned colourWhite = 0xFFFFFF;
constexpr unsigned colourFocus = 0xC0FFFF; // pale yellow: the field that has the keyboard
