// Twips and colour numbers: the units in which forms, notes and the database speak.
#pragma once

#include <QColor>
#include <QRect>
#include <cmath>

constexpr int twipsPerPixel = 15;

inline int pixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }
constexpr int twips(int pixels) { return pixels * twipsPerPixel; }

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
