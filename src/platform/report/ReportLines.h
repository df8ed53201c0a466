// How wide letters are and where lines break, in twips, for the texts of a report.
#pragma once

#include "platform/report/ReportDefinition.h"

#include <array>
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
    // Of the letters that stand alone and never join: Latin, Greek, Cyrillic. Measured when first met.
    static constexpr double unknown = -1;
    QFontMetricsF metrics_;
    double spacing_;
    std::array<double, 0x530> advances_;
};

// The measures of each element's font, made once for a report.
class ReportLines
{
public:
    FontMeasure &measure(const ReportElement &element);

    // All lines that the text takes in the element's width.
    QStringList all(const ReportElement &element, const QString &text);
    // Those that fit into the element as it stands; one line too long ends in an ellipsis.
    QStringList fitting(const ReportElement &element, const QString &text);

private:
    std::unordered_map<const ReportElement *, FontMeasure> measures_;
};
