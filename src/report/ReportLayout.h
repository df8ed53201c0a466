// Lays out a report page by page: from the place where a page begins to what stands on it and where the next
// one begins. Page header and footer show the record with which their page begins.
#pragma once

#include "report/ReportData.h"
#include "report/ReportLines.h"
#include "report/ReportPage.h"

#include <functional>
#include <optional>
#include <QDate>

class ReportLayout
{
public:
    // Where a page begins: in the report header (band 0), in a record's detail, or in the report footer.
    struct Place {
        std::size_t band = 0;
        std::size_t row = 0;
        std::size_t line = 0; // of the row's growing texts
    };
    // What a text's {page} and {pages} show.
    struct Numbers {
        QString page;
        QString pages;
    };
    struct Laid {
        ReportPage page;
        Place next; // behind the last band at the report's end
    };

    // The bytes of a picture that is no file, by the name that a record has for it; none for all others.
    using HeldPictures = std::function<QByteArray(const QString &)>;

    // Definition, records and parameters stay the caller's and must outlive it. Where there is no record, the
    // page says "nothing" in the place of the details.
    ReportLayout(const ReportDefinition &definition, const ReportData &data,
                 const QHash<QString, QString> &parameters, const QDate &today, QString nothing,
                 HeldPictures held = {});

    // A page takes at least one row or line, however little room there is, so the report always comes to its
    // end.
    Laid layOut(const Place &start, const Numbers &numbers);

    std::size_t lastBand() const { return data_.size() + 1; }
    QString textOf(const ReportText &text, std::size_t band, const Numbers &numbers) const;

private:
    class Sheet;

    const ReportBand &bandAt(std::size_t band) const;
    // The record that a band shows, or stands next to; none in a report without one.
    std::optional<std::size_t> recordOf(std::size_t band) const;
    bool closedUp(const ReportRow &row, std::size_t band) const;
    double fixedHeight(const ReportBand &band, std::size_t number) const;
    double wholeHeight(const ReportBand &band, std::size_t number, const Numbers &numbers);
    const QStringList &grownLines(const ReportElement &element, std::size_t band, const Numbers &numbers);

    const ReportDefinition &definition_;
    const ReportData &data_;
    const QHash<QString, QString> &parameters_;
    QString date_;
    QString today_; // as the language writes it
    QString nothing_;
    const ReportElement notice_; // how that is said
    const HeldPictures held_;
    ReportLines lines_;
    // The lines of the growing texts of one record, since a long one is asked for on each of its pages.
    std::size_t grownBand_ = 0;
    std::unordered_map<const ReportElement *, QStringList> grown_;
};
