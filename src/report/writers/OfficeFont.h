// The letters that exported workbooks and documents are written in.
#pragma once

#include <QFont>

// What such a file calls them; every office program knows them, or others that are as wide.
inline QString officeFontName() { return QStringLiteral("Arial"); }

// To measure them with, in twips. A computer that has neither them nor others as wide measures with its own,
// which are rarely narrower.
QFont officeFont(int points, QFont::Weight weight);
