// A report on its pages. Everything is laid out in twips, so screen, paper and PDF break their lines alike;
// pages are found as they are asked for, and only the page in hand is ever painted.
#pragma once

#include "platform/report/ReportData.h"
#include "platform/report/ReportRows.h"

#include <array>
#include <optional>
#include <QDate>
#include <QFontMetricsF>
#include <unordered_map>

class QPainter;

class ReportPages
{
public:
    enum Medium { OnScreen, OnPaper };

    ReportPages(ReportDefinition definition, ReportData data, QHash<QString, QString> parameters,
                const QDate &today);
    ReportPages(const ReportPages &) = delete;
    ReportPages &operator=(const ReportPages &) = delete;

    const ReportDefinition &definition() const { return definition_; }
    const ReportData &data() const { return data_; }
    QSizeF paper() const { return definition_.paper(); }

    // The pages found so far: at least the first. A report without a record has one page.
    int found() const { return static_cast<int>(starts_.size()); }
    bool complete() const { return complete_; }
    // Finds one page more.
    void findNext();
    // The number of pages; finds all of them.
    int count();

    // Paints a page, found if need be, on a painter whose unit is the twip and whose origin is the sheet's
    // corner. The number of pages shows as blank until all are found.
    void paint(QPainter &painter, int page, Medium medium);

    // The page on which a record begins, found if need be.
    int pageOf(std::size_t record);

    // The records as texts, as an exported file shows them.
    ReportRows rows() const;

private:
    // Where a page begins: in the report header (band 0), in a record's detail, or in the report footer.
    struct Place {
        std::size_t band = 0;
        std::size_t row = 0;
        std::size_t line = 0; // of the row's growing texts
    };
    struct Metrics {
        explicit Metrics(const QFont &font);
        double advance(const QString &text) const;
        QFontMetricsF font;
        double spacing;
        // Of the letters that stand alone and never join: Latin, Greek, Cyrillic. Measured when first met.
        static constexpr double unknown = -1;
        mutable std::array<double, 0x530> advances;
    };
    // What is painted on and where; nothing while pages are only counted.
    struct Canvas;

    Place write(const Place &start, const Canvas *canvas) const;
    bool writeRow(const ReportRow &row, Place &place, double &y, const Canvas *canvas) const;
    bool writeGrowingRow(const ReportRow &row, Place &place, double &y, const Canvas *canvas) const;
    void writeFixed(const ReportBand &band, double y, const Canvas &canvas) const;

    std::size_t lastBand() const { return data_.size() + 1; }
    const ReportBand &bandAt(std::size_t band) const;
    // The record that a band shows, or stands next to; none in a report without one.
    std::optional<std::size_t> recordOf(std::size_t band) const;
    bool closedUp(const ReportRow &row, std::size_t band) const;
    double fixedHeight(const ReportBand &band, std::size_t number) const;

    QString textOf(const ReportText &text, std::size_t band, const Canvas *canvas) const;
    const Metrics &metrics(const ReportElement &element) const;
    QStringList lines(const ReportElement &element, const QString &text) const;
    const QStringList &grownLines(const ReportElement &element, std::size_t band) const;

    void paintElement(const ReportElement &element, std::size_t band, double y, const Canvas &canvas) const;
    void paintText(const ReportElement &element, const QStringList &lines, double y,
                   const Canvas &canvas) const;
    void paintPicture(const ReportElement &element, const QString &file, double y,
                      const Canvas &canvas) const;
    QStringList fixedLines(const ReportElement &element, const QString &text) const;

    ReportDefinition definition_;
    ReportData data_;
    QHash<QString, QString> parameters_;
    QString today_;
    std::vector<Place> starts_{Place{}}; // of each page found
    Place next_;                         // where the page behind the last one found begins
    bool complete_ = false;

    mutable std::unordered_map<const ReportElement *, Metrics> metrics_;
    // The lines of the growing texts of one record, since a long one is asked for on each of its pages.
    mutable std::size_t grownBand_ = 0;
    mutable std::unordered_map<const ReportElement *, QStringList> grown_;
};
