// How much room a text takes where all letters are equally wide.
#pragma once

#include <QString>
#include <QStringList>

// Of the widest line, in letters; one of the Far East takes two, an accent of its own none.
int textWidth(QStringView text);

// The lines of the text, those that are wider broken further, between words where that is possible. Never
// none.
QStringList wrappedLines(const QString &text, int width);
