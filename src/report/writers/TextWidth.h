// How much room a text takes, and where it breaks when it has less.
#pragma once

#include "report/LetterWidths.h"

#include <optional>
#include <QFontMetricsF>
#include <QString>
#include <QStringList>
#include <unordered_map>

// The room is counted in letters where all are equally wide, of which one of the Far East takes two and an
// accent of its own none; or in the unit of a font's pixel size, each letter as wide as the font has it: so
// pages are laid out too.
class TextMeasure
{
public:
    TextMeasure() = default;
    explicit TextMeasure(const QFont &font);

    // Of the widest line.
    double width(QStringView text) const;
    // Of the widest part that no blank parts further.
    double widestWord(QStringView text) const;

    // The lines of the text, those that are wider broken further, between words where that is possible.
    // Never none, and none with a blank at its end.
    QStringList lines(const QString &text, double width) const;

private:
    struct Letter;

    double letterWidth(char32_t letter) const;
    qsizetype breakOf(QStringView line, double width) const;

    double measured(char32_t letter) const;

    std::optional<QFontMetricsF> font_;
    mutable LetterWidths near_;
    mutable std::unordered_map<char32_t, double> far_;
};

// The same where all letters are equally wide.
int textWidth(QStringView text);
QStringList wrappedLines(const QString &text, int width);

// With blanks for its tabs: one is as wide as each editor likes, and within a cell it would move the cells
// behind it out of their columns.
QString untabbed(QString text);
