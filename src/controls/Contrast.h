// How well letters stand out from their ground, and colours that do. Whoever paints a ground of its own takes
// the letters from here: those of the desktop's palette were made for the desktop's grounds.
#pragma once

#include <QColor>

class QPalette;

constexpr double readableContrast = 4.5; // below this small letters are hard to read

// From 1 (alike) to 21 (black and white). Transparency is not taken into account.
double contrast(const QColor &one, const QColor &other);

// The first colour with that share of the other, from 0 to 1.
QColor mixed(const QColor &from, const QColor &to, double share);

// Black or white, whichever stands out more: at least 4.58 on any ground.
QColor lettersOn(const QColor &ground);

// That colour, if it can be read on that ground; otherwise the nearest to it that can, towards black or
// white.
QColor readableOn(const QColor &letters, const QColor &ground);

// Fields, windows and buttons of that palette get the ground, and letters that can be read on it.
void setGround(QPalette &palette, const QColor &ground);
