// The one scale of the forms. Their places are drawn for letters of eleven pixels; where the desktop's
// letters are larger, every place and size grows with them. A desktop font of nine points at 96 dots an inch,
// which is what the toolkit takes where the desktop names none, gives the forms as they are drawn; smaller
// ones do too.
#pragma once

#include <QRect>
#include <QSize>

class QApplication;
class QFont;
class QWidget;

namespace scale
{
constexpr int standardLetters = 11; // pixels
constexpr int largestFactor = 3;

// The letters of the forms, in pixels, on a desktop with that font and so many dots an inch.
int lettersFor(const QFont &desktop, double dotsPerInch);

// Gives the application letters of so many pixels, and with them the scale. For forms that are made from now
// on.
void setLetters(int pixels);

// The letters of the application as a multiple of the standard ones, 1 to 3.
double factor();

// A length that was drawn for the standard, in pixels.
int scaled(int pixels);
QSize scaled(QSize size);

// To be called once for a window, at the end of its setupUi: its places and sizes, those of all in it, its
// icons and letters of a size of their own take the scale, and it stays on the screen (see ScrolledForm.h).
void apply(QWidget &form);
} // namespace scale
