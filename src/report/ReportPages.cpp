#include "report/ReportPages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ReportPages::ReportPages(ReportDefinition definition, ReportData data, QHash<QString, QString> parameters,
                         const QDate &today, QString nothing, ReportLayout::HeldPictures held)
    : definition_(std::move(definition)),
      data_(std::move(data)),
      parameters_(std::move(parameters)),
      layout_(definition_, data_, parameters_, today, std::move(nothing), std::move(held))
{
    layOutLast();
}

void ReportPages::findNext()
{
    if (complete_) return;
    starts_.push_back(next_);
    layOutLast();
}

// Of a page that is only being found its end is kept, and what it could not take.
void ReportPages::layOutLast()
{
    ReportLayout::Laid laid = layout_.layOut(starts_.back(), numbers(found() - 1));
    next_ = laid.next;
    lost_ << laid.page.lost;
    complete_ = next_.band > layout_.lastBand();
}

int ReportPages::count()
{
    while (!complete_)
        findNext();
    return found();
}

QStringList ReportPages::lost()
{
    if (definition_.canLose()) count();
    return lost_;
}

ReportPage ReportPages::page(int number)
{
    while (found() <= number && !complete_)
        findNext();
    if (number < 0 || number >= found()) return {};
    return layout_.layOut(starts_[static_cast<std::size_t>(number)], numbers(number)).page;
}

void ReportPages::paint(QPainter &painter, int number, Medium medium) { page(number).paint(painter, medium); }

ReportLayout::Numbers ReportPages::numbers(int page) const
{
    return {.page = QString::number(page + 1), .pages = complete_ ? QString::number(found()) : QString()};
}

int ReportPages::pageOf(std::size_t record)
{
    const std::size_t band = record + 1;
    while (!complete_ && next_.band <= band)
        findNext();
    const auto behind = std::find_if(starts_.begin(), starts_.end(), [&](const ReportLayout::Place &start) {
        return start.band > band || (start.band == band && (start.row > 0 || start.line > 0));
    });
    return static_cast<int>(behind - starts_.begin()) - 1;
}

ReportRows ReportPages::rows() const
{
    const auto textOf = [this](const ReportText &text, std::size_t band) {
        return layout_.textOf(text, band, {.page = {}, .pages = numbers(0).pages});
    };
    const auto cellOf = [&](const ReportText &text, std::size_t band) {
        QString cell = textOf(text, band).trimmed();
        if (cell.contains(u'\r')) cell.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
        return cell;
    };
    ReportRows rows;
    rows.title = definition_.title;
    std::vector<const ReportElement *> columns;
    for (const ReportRow &row : definition_.detail.rows)
        for (const ReportElement &element : row.elements)
            if (element.kind == ReportElement::Text && element.text.hasFields()) columns.push_back(&element);
    for (const ReportElement *column : columns) {
        const ReportField &field = definition_.fields[column->text.fields().front()];
        const QString head = textOf(column->head, 1);
        rows.heads << (head.isEmpty() ? field.column : head);
        rows.fields << field.table + u'.' + field.column;
    }
    rows.records.resize(data_.size());
    for (std::size_t i = 0; i < data_.size(); ++i) {
        rows.records[i].reserve(columns.size());
        for (const ReportElement *column : columns)
            rows.records[i].push_back(cellOf(column->text, i + 1));
    }
    return rows;
}
