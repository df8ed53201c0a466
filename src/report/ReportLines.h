// How wide letters are and where lines break, in twips, for the texts of a report.
#pragma once

#include "report/LetterWidths.h"
#include "report/ReportDefinition.h"

#include <map>
#include <QFontMetricsF>
#include <QStringList>
#include <unordered_map>

class FontMeasure
{
public:
    explicit FontMeasure(const QFont &font);

    double spacing() const { return spacing_; } // from one line to the next
    double ascent() const { return metrics_.ascent(); }
    double advance(const QString &text);
    // The line, or its beginning with an ellipsis.
    QString elided(const QString &line, double width) const;

private:
    QFontMetricsF metrics_;
    double spacing_;
    LetterWidths letters_;
};

// The lines of a report's texts. What is measured of an element's font is kept for the next of its texts.
class ReportLines
{
public:
    // What an element shows that does not grow.
    struct Fitted {
        QStringList lines;
        QFont font; // the element's own, or smaller
        QStringList lost;
    };

    FontMeasure &measure(const ReportElement &element) { return measure(element, element.font); }
    // The font is the element's own, or smaller.
    FontMeasure &measure(const ReportElement &element, const QFont &font);

    // All lines that the text takes in the element's width.
    QStringList all(const ReportElement &element, const QString &text);
    // Those that fit into the element as it stands. One line too long ends in an ellipsis.
    Fitted fitting(const ReportElement &element, const QString &text);

private:
    QStringList all(const ReportElement &element, const QFont &font, const QString &text);
    QString single(const ReportElement &element, const QString &text);
    qsizetype room(const ReportElement &element, const QFont &font);

    std::unordered_map<const ReportElement *, FontMeasure> measures_;
    std::map<std::pair<const ReportElement *, int>, FontMeasure> smaller_; // by the font's size too
};
