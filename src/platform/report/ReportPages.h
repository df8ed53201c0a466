// A report on its pages. Everything is laid out in twips, so screen, paper and PDF break their lines alike;
// pages are found as they are asked for, and only the page in hand is ever painted.
#pragma once

#include "platform/report/ReportData.h"
#include "platform/report/ReportRows.h"

#include <memory>
#include <optional>
#include <QDate>

class QPainter;

class ReportPages
{
public:
    enum Medium { OnScreen, OnPaper };

    ReportPages(ReportDefinition definition, ReportData data, QHash<QString, QString> parameters,
                const QDate &today);
    ~ReportPages();
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
    struct Place;
    class Writer;
    Place write(const Place &start, Writer *writer);

    ReportDefinition definition_;
    ReportData data_;
    QHash<QString, QString> parameters_;
    QString today_;
    std::vector<Place> starts_; // of each page found
    bool complete_ = false;
};
