#include "report/ReportText.h"

#include "platform/Failure.h"

#include <QDate>
#include <QHash>
#include <QStringList>
#include <QTime>

using namespace Qt::StringLiterals;

namespace
{
[[noreturn]] void raise(const QString &what)
{
    throw Failure(Failure::InvalidPropertyValue, u"Report"_s, what);
}

// Where the place that begins at the brace ends: at the brace that closes it.
qsizetype endOfPlace(const QString &source, qsizetype begin)
{
    int depth = 0;
    for (qsizetype i = begin; i < source.size(); ++i) {
        if (source[i] == u'{') ++depth;
        if (source[i] == u'}' && --depth == 0) return i;
    }
    raise(u"A brace is not closed: %1"_s.arg(source.mid(begin)));
}

QString asDate(const QString &stored)
{
    const QDate date = QDate::fromString(stored, Qt::ISODate);
    return date.isValid() ? date.toString(u"dd-MM-yyyy"_s) : stored;
}

QString asTime(const QString &stored)
{
    const QTime time = QTime::fromString(stored, Qt::ISODate);
    return time.isValid() ? time.toString(u"HH:mm"_s) : stored;
}

// A day or a month of one digit, as if it had been written with two.
QString asTwoDigits(const QString &stored)
{
    const bool oneDigit = stored.size() == 1 && stored[0] >= u'1' && stored[0] <= u'9';
    return oneDigit ? u'0' + stored : stored;
}
} // namespace

ReportText::ReportText(const QString &source, const FieldNumber &fieldNumber)
{
    QString literal;
    const auto flush = [&] {
        if (literal.isEmpty()) return;
        parts_.emplace_back(Part::Literal, literal);
        literal.clear();
    };
    for (qsizetype i = 0; i < source.size(); ++i) {
        const bool doubled = i + 1 < source.size() && source[i + 1] == source[i];
        if ((source[i] == u'{' || source[i] == u'}') && doubled) {
            literal += source[i++];
        } else if (source[i] == u'{') {
            flush();
            const qsizetype end = endOfPlace(source, i);
            parts_.push_back(partOf(source.mid(i + 1, end - i - 1), fieldNumber));
            i = end;
        } else if (source[i] == u'}') {
            raise(u"A brace is closed that was never opened: %1"_s.arg(source));
        } else {
            literal += source[i];
        }
    }
    flush();
}

ReportText::Part ReportText::partOf(const QString &place, const FieldNumber &fieldNumber)
{
    if (place == "page"_L1) return Part(Part::Page);
    if (place == "pages"_L1) return Part(Part::Pages);
    if (place == "date"_L1) return Part(Part::Date);
    if (place == "pageofpages"_L1) return Part(Part::PageOfPages);
    if (place == "today"_L1) return Part(Part::Today);
    if (!place.startsWith(u'?')) return fieldPart(place, fieldNumber);

    const qsizetype inner = place.indexOf(u'{');
    if (inner < 0) return Part(Part::Parameter, place.mid(1));
    if (!place.endsWith(u'}')) raise(u"Nothing may follow the field in {%1}"_s.arg(place));
    Part part = fieldPart(place.mid(inner + 1, place.size() - inner - 2), fieldNumber);
    part.kind = Part::Parameter;
    part.text = place.mid(1, inner - 1);
    part.hasField = true;
    return part;
}

ReportText::Part ReportText::fieldPart(const QString &place, const FieldNumber &fieldNumber)
{
    const QString format = place.section(u':', 1);
    const QString name = place.section(u':', 0, 0);
    const qsizetype dot = name.indexOf(u'.');
    if (dot <= 0 || dot + 1 == name.size()) raise(u"{%1} is no place that a text may hold"_s.arg(place));
    static const QHash<QString, Part::Format> formats{
        {{}, Part::Plain}, {u"date"_s, Part::AsDate}, {u"time"_s, Part::AsTime}, {u"00"_s, Part::TwoDigits}};
    if (!formats.contains(format)) raise(u"Fields are shown as date, time or 00, not as %1"_s.arg(format));

    Part part(Part::Field);
    for (const QString &column : name.mid(dot + 1).split(u'|'))
        part.others.push_back(fieldNumber({name.left(dot), column}));
    part.field = part.others.front();
    part.format = formats[format];
    fields_.insert(fields_.end(), part.others.begin(), part.others.end());
    part.others.erase(part.others.begin());
    return part;
}

QString ReportText::in(const Values &values) const
{
    if (parts_.size() == 1) return valueOf(parts_.front(), values);
    QString text;
    for (const Part &part : parts_)
        text += valueOf(part, values);
    return text;
}

QString ReportText::fieldOf(const Part &part, const Values &values)
{
    QString value = values.field(part.field);
    for (const std::size_t other : part.others)
        if (value.trimmed().isEmpty()) value = values.field(other);
    return value;
}

QString ReportText::valueOf(const Part &part, const Values &values)
{
    switch (part.kind) {
    case Part::Literal:
        return part.text;
    case Part::Page:
        return values.page;
    case Part::Pages:
        return values.pages;
    case Part::Date:
        return values.date;
    case Part::PageOfPages:
        return values.pageOfPages;
    case Part::Today:
        return values.today;
    case Part::Field:
        break;
    case Part::Parameter:
        const QString inner = part.hasField ? fieldOf(part, values) : QString();
        const QString *value = values.parameter(part.text + formatted(part.format, inner));
        return value ? *value : inner;
    }
    return formatted(part.format, fieldOf(part, values));
}

QString ReportText::formatted(Part::Format format, const QString &stored)
{
    switch (format) {
    case Part::AsDate:
        return asDate(stored);
    case Part::AsTime:
        return asTime(stored);
    case Part::TwoDigits:
        return asTwoDigits(stored);
    default:
        return stored;
    }
}

QStringList ReportText::parameters() const
{
    QStringList names;
    for (const Part &part : parts_)
        if (part.kind == Part::Parameter && !part.hasField) names << part.text;
    return names;
}
