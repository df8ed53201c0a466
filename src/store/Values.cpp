#include "store/Values.h"

#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <QDate>
#include <QLocale>
#include <QRegularExpression>
#include <QTime>

namespace
{
[[noreturn]] void raiseMismatch(const QString &text, const char *type)
{
    throw Failure(Failure::TypeMismatch, QStringLiteral("Value"),
                  QStringLiteral("\"%1\" is no %2").arg(text, QLatin1String(type)));
}

bool isAsciiBlank(QChar sign) { return sign == u' ' || (sign >= u'\t' && sign <= u'\r'); }

// Written by hand: the IDs of a large import are texts, and a pattern costs as much as writing the row.
bool isWholeNumber(QStringView text)
{
    while (!text.isEmpty() && isAsciiBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isAsciiBlank(text.back()))
        text.chop(1);
    if (text.startsWith(u'+') || text.startsWith(u'-')) text = text.sliced(1);
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
}

qint64 toLong(const QString &text)
{
    bool fits = false;
    const int number = QStringView(text).trimmed().toInt(&fits);
    if (!fits || !isWholeNumber(text)) raiseMismatch(text, "whole number of 32 bits");
    return number;
}

// Either sign stands before the decimals. The words for infinity and for no number are none.
std::optional<double> numberOf(const QString &text)
{
    bool valid = false;
    const double number = QLocale::c().toDouble(text.trimmed().replace(u',', u'.'), &valid);
    return valid && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// The double whose shortest text is the shortest one that reads back as the same float: 0,1 stays 0.1.
double toSingle(const QString &text)
{
    const auto number = numberOf(text);
    constexpr double largest = std::numeric_limits<float>::max();
    if (!number || std::abs(*number) > largest) raiseMismatch(text, "number of 32 bits");
    const auto single = static_cast<float>(*number);
    std::array<char, 32> shortest{};
    const auto end = std::to_chars(shortest.data(), shortest.data() + shortest.size(), single).ptr;
    double stored = 0;
    std::from_chars(shortest.data(), end, stored);
    return stored;
}

qint64 toYesNo(const QString &text)
{
    static const std::array yes{u"True", u"Verdadeiro", u"Sim", u"Yes"};
    static const std::array no{u"False", u"Falso", u"Não", u"No"};
    const QString word = text.trimmed();
    const auto isWord = [&](const char16_t *known) {
        return word.compare(QStringView(known), Qt::CaseInsensitive) == 0;
    };
    if (std::any_of(yes.begin(), yes.end(), isWord)) return 1;
    if (std::any_of(no.begin(), no.end(), isWord)) return 0;
    const auto number = numberOf(word);
    if (!number) raiseMismatch(text, "yes or no");
    return *number != 0 ? 1 : 0;
}

std::optional<QTime> timeOf(const QString &text)
{
    static const QRegularExpression shape(QStringLiteral("^([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))?$"));
    const auto match = shape.match(text);
    const QTime time(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    return match.hasMatch() && time.isValid() ? std::optional(time) : std::nullopt;
}

std::optional<QDate> dateOf(const QString &text)
{
    static const QRegularExpression dayFirst(
        QStringLiteral("^([0-9]{1,2})([-/.])([0-9]{1,2})\\2([0-9]{4})$"));
    static const QRegularExpression yearFirst(QStringLiteral("^([0-9]{4})-([0-9]{1,2})-([0-9]{1,2})$"));
    QDate date;
    if (const auto match = dayFirst.match(text); match.hasMatch())
        date = QDate(match.captured(4).toInt(), match.captured(3).toInt(), match.captured(1).toInt());
    else if (const auto other = yearFirst.match(text); other.hasMatch())
        date = QDate(other.captured(1).toInt(), other.captured(2).toInt(), other.captured(3).toInt());
    constexpr int firstYear = 100;
    return date.isValid() && date.year() >= firstYear ? std::optional(date) : std::nullopt;
}

QString toDate(const QString &text)
{
    const QString whole = text.trimmed();
    const qsizetype blank = whole.indexOf(u' ');
    const auto date = dateOf(blank < 0 ? whole : whole.left(blank));
    if (!date || (blank >= 0 && !timeOf(whole.mid(blank + 1).trimmed()))) raiseMismatch(text, "date");
    return date->toString(Qt::ISODate);
}

// A date before the time is dropped, as a time before nothing else is kept.
QString toTime(const QString &text)
{
    QString whole = text.trimmed();
    if (const qsizetype blank = whole.indexOf(u' '); blank >= 0 && dateOf(whole.left(blank)))
        whole = whole.mid(blank + 1).trimmed();
    const auto time = timeOf(whole);
    if (!time) raiseMismatch(text, "time");
    return time->toString(Qt::ISODate);
}
} // namespace

QString Value::text() const
{
    if (const auto *number = std::get_if<qint64>(&value_)) return QString::number(*number);
    if (const auto *number = std::get_if<double>(&value_))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    return std::get<QString>(value_);
}

StoreValue Value::convertedTo(ColumnType type) const
{
    if (std::holds_alternative<std::monostate>(value_)) return value_;
    if (std::holds_alternative<QByteArray>(value_) != (type == ColumnType::Bytes))
        raiseMismatch(QStringLiteral("value"), "kind that the column holds");
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Pattern:
        return text();
    case ColumnType::Long:
        return toLong(text());
    case ColumnType::Single:
        return toSingle(text());
    case ColumnType::YesNo:
        return toYesNo(text());
    case ColumnType::Date:
        return toDate(text());
    case ColumnType::Time:
        return toTime(text());
    case ColumnType::Bytes:
        return value_;
    }
    Q_UNREACHABLE();
}
