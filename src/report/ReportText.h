// A text of a report with its places: {Table.Field}, {Table.Field:date}, {Table.Field:time},
// {Table.Field:00},
// {?parameter}, {page}, {pages}, {date}, {pageofpages}, {today}. Two braces stand for one. A parameter's name
// may hold a field: {?month{Table.Month}}; where there is no parameter of that name the field's own value
// stands there. {Table.Field|Other} shows the first of the fields that is not empty.
#pragma once

#include <functional>
#include <QString>
#include <vector>

struct ReportField {
    QString table;
    QString column;
    bool operator==(const ReportField &other) const = default;
};

class ReportText
{
public:
    // What the places stand for at one place of one page.
    struct Values {
        std::function<QString(std::size_t field)> field;
        std::function<const QString *(const QString &name)> parameter; // null when there is none
        QString page;
        QString pages;
        QString date;
        QString pageOfPages; // in the words of the language
        QString today;       // as the language writes a day
    };
    // Called for each field found; returns its number in a record. May raise a Failure of its own.
    using FieldNumber = std::function<std::size_t(const ReportField &)>;

    ReportText() = default;
    // Raises Failure that says what is wrong in the text.
    ReportText(const QString &source, const FieldNumber &fieldNumber);

    QString in(const Values &values) const;

    bool isEmpty() const { return parts_.empty(); }
    bool hasFields() const { return !fields_.empty(); }
    const std::vector<std::size_t> &fields() const { return fields_; }
    // The parameters named in full, for a check that there are such.
    QStringList parameters() const;

private:
    struct Part {
        enum Kind { Literal, Field, Parameter, Page, Pages, Date, PageOfPages, Today };
        enum Format { Plain, AsDate, AsTime, TwoDigits };
        explicit Part(Kind of, QString literal = {}) : kind(of), text(std::move(literal)) {}

        Kind kind;
        QString text; // the literal, or the beginning of a parameter's name
        std::size_t field = 0;
        std::vector<std::size_t> others; // fields that stand in, in turn, for an empty one
        Format format = Plain;
        bool hasField = false; // a parameter's name goes on with the field
    };
    Part partOf(const QString &place, const FieldNumber &fieldNumber);
    Part fieldPart(const QString &place, const FieldNumber &fieldNumber);
    static QString valueOf(const Part &part, const Values &values);
    static QString fieldOf(const Part &part, const Values &values);
    static QString formatted(Part::Format format, const QString &stored);

    std::vector<Part> parts_;
    std::vector<std::size_t> fields_;
};
