// A report on its pages. Everything is laid out in twips, so screen, paper and PDF break their lines alike;
// pages are found as they are asked for, and only the page in hand is kept.
#pragma once

#include "report/ReportLayout.h"
#include "report/ReportRows.h"

#include <QDate>

class ReportPages
{
public:
    using Medium = ReportPage::Medium;
    static constexpr Medium OnScreen = ReportPage::OnScreen;
    static constexpr Medium OnPaper = ReportPage::OnPaper;

    // Where there is no record, the page says what "nothing" says.
    ReportPages(ReportDefinition definition, ReportData data, QHash<QString, QString> parameters,
                const QDate &today, QString nothing = {}, ReportLayout::HeldPictures held = {});
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

    // What stands on a page, found if need be; nothing on one that there isn't. The number of pages shows as
    // blank until all are found.
    ReportPage page(int number);
    // Draws it on a painter whose unit is the twip and whose origin is the sheet's corner.
    void paint(QPainter &painter, int page, Medium medium);

    // The lines of text for which there is no room on any page, in the order of the pages. Finds all pages,
    // if the definition has a text that can lose some.
    QStringList lost();

    // The page on which a record begins, found if need be.
    int pageOf(std::size_t record);

    // The records as texts, as an exported file shows them.
    ReportRows rows() const;

private:
    void layOutLast();
    ReportLayout::Numbers numbers(int page) const;

    ReportDefinition definition_;
    ReportData data_;
    QHash<QString, QString> parameters_;
    ReportLayout layout_;
    std::vector<ReportLayout::Place> starts_{ReportLayout::Place{}}; // of each page found
    ReportLayout::Place next_; // where the page behind the last one found begins
    bool complete_ = false;
    QStringList lost_;
};
