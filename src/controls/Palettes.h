// The program's two palettes, for a desktop that gives none of its own.
#pragma once

#include <QPalette>

// Of the style's own colours, with those that could not be read on their grounds put right.
QPalette lightPalette(const QPalette &ofTheStyle);
QPalette darkPalette();
