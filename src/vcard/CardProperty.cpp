#include "vcard/CardProperty.h"

#include "vcard/CardDecoding.h"
#include "vcard/CardLines.h"
#include "vcard/CardText.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{
// The first sign outside of quotation marks, or where a mark is never closed, the first of all.
qsizetype outsideQuotes(QByteArrayView line, char sign, qsizetype from)
{
    bool quoted = false;
    for (qsizetype i = from; i < line.size(); ++i) {
        if (line[i] == '"') quoted = !quoted;
        if (line[i] == sign && !quoted) return i;
    }
    return quoted ? line.indexOf(sign, from) : -1;
}

constexpr std::array<const char *, 40> knownNames{
    "BEGIN",  "END",    "VERSION",    "FN",    "N",           "NICKNAME",    "PHOTO", "BDAY",
    "ADR",    "LABEL",  "TEL",        "EMAIL", "MAILER",      "TZ",          "GEO",   "TITLE",
    "ROLE",   "LOGO",   "AGENT",      "ORG",   "NOTE",        "REV",         "SOUND", "URL",
    "UID",    "KEY",    "CATEGORIES", "CLASS", "PRODID",      "SORT-STRING", "IMPP",  "KIND",
    "MEMBER", "SOURCE", "GENDER",     "LANG",  "ANNIVERSARY", "RELATED",     "FBURL", "CALURI"};

bool isNameSign(char sign)
{
    return (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z') || (sign >= '0' && sign <= '9') ||
           sign == '-' || sign == '_';
}

// What the bare words of older cards stand for: TEL;CELL, NOTE;QUOTED-PRINTABLE, PHOTO;URL.
QByteArray nameOfBareWord(const QByteArray &upper)
{
    for (const char *word : {"QUOTED-PRINTABLE", "BASE64", "B", "8BIT", "7BIT"})
        if (upper == word) return "ENCODING";
    for (const char *word : {"URL", "URI", "INLINE", "CONTENT-ID", "CID"})
        if (upper == word) return "VALUE";
    return "TYPE";
}

QByteArrayList parameterValues(QByteArrayView text)
{
    text = text.trimmed();
    if (text.size() >= 2 && text.startsWith('"') && text.endsWith('"') && text.count('"') == 2)
        return {text.sliced(1, text.size() - 2).toByteArray()};
    QByteArrayList values;
    for (qsizetype at = 0; at <= text.size();) {
        qsizetype comma = outsideQuotes(text, ',', at);
        if (comma < 0) comma = text.size();
        QByteArray value = text.sliced(at, comma - at).toByteArray();
        values << value.replace('"', "").trimmed();
        at = comma + 1;
    }
    return values;
}
} // namespace

bool isKnownCardProperty(QByteArrayView name)
{
    return std::any_of(knownNames.begin(), knownNames.end(),
                       [&](const char *known) { return name.compare(known, Qt::CaseInsensitive) == 0; });
}

CardHead::CardHead(QByteArrayView line)
{
    constexpr qsizetype longest =
        qsizetype{64} * 1024; // no head is that long, and one that is would fill the memory
    const qsizetype colon = outsideQuotes(line.first(std::min(line.size(), longest)), ':', 0);
    if (colon < 0) return;
    const QByteArrayView head = line.first(colon);
    bool isFirst = true;
    for (qsizetype at = 0; at <= head.size();) {
        qsizetype end = outsideQuotes(head, ';', at);
        if (end < 0) end = head.size();
        const QByteArrayView piece = head.sliced(at, end - at).trimmed();
        isFirst ? readName(piece) : readParameter(piece);
        isFirst = false;
        at = end + 1;
    }
    if (!name_.isEmpty()) length_ = colon;
}

void CardHead::readName(QByteArrayView text)
{
    const qsizetype dot = text.lastIndexOf('.');
    QByteArrayView name = text.sliced(dot + 1).trimmed();
    // Some programs write a comma before the first parameter.
    if (const qsizetype comma = name.indexOf(','); comma > 0 && isKnownCardProperty(name.first(comma))) {
        readParameter(name.sliced(comma + 1).trimmed());
        name = name.first(comma);
    }
    if (!std::all_of(name.begin(), name.end(), isNameSign)) return;
    if (dot > 0) group_ = text.first(dot).trimmed().toByteArray();
    name_ = name.toByteArray().toUpper();
}

void CardHead::readParameter(QByteArrayView text)
{
    if (text.isEmpty()) return;
    const qsizetype equals = text.indexOf('=');
    if (equals > 0) {
        const QByteArray name = text.first(equals).trimmed().toByteArray().toUpper();
        parameters_.push_back({name, parameterValues(text.sliced(equals + 1))});
        return;
    }
    const QByteArrayList values = parameterValues(text);
    const QByteArray name = nameOfBareWord(values.constFirst().toUpper());
    parameters_.push_back({name, values});
}

QByteArrayList CardHead::values(QByteArrayView parameter) const
{
    QByteArrayList all;
    for (const CardParameter &each : parameters_)
        if (each.name == parameter) all += each.values;
    return all;
}

QByteArray CardHead::value(QByteArrayView parameter) const
{
    for (const CardParameter &each : parameters_)
        if (each.name == parameter && !each.values.isEmpty()) return each.values.constFirst();
    return {};
}

bool CardHead::isQuotedPrintable() const
{
    const QByteArrayList encodings = values("ENCODING");
    return std::any_of(encodings.begin(), encodings.end(), [](const QByteArray &encoding) {
        return encoding.compare("QUOTED-PRINTABLE", Qt::CaseInsensitive) == 0 ||
               encoding.compare("Q", Qt::CaseInsensitive) == 0;
    });
}

bool CardHead::isBase64() const
{
    const auto isNamed = [](const QByteArray &encoding) {
        return encoding.compare("BASE64", Qt::CaseInsensitive) == 0 ||
               encoding.compare("B", Qt::CaseInsensitive) == 0;
    };
    const QByteArrayList encodings = values("ENCODING");
    return std::any_of(encodings.begin(), encodings.end(), isNamed) ||
           (encodings.isEmpty() && value("VALUE").compare("BINARY", Qt::CaseInsensitive) == 0);
}

CardProperty::CardProperty(CardHead head, QByteArrayView line, Place place, QByteArray fallbackCharset)
    : head_(std::move(head)),
      value_(line.sliced(head_.length() + 1).toByteArray()),
      place_(place),
      fallback_(std::move(fallbackCharset))
{
}

QStringList CardProperty::types() const
{
    QStringList types;
    for (const QByteArray &value : head_.values("TYPE"))
        for (const QByteArray &type : value.split(','))
            if (!type.trimmed().isEmpty()) types << QString::fromUtf8(type.trimmed()).toLower();
    types.sort();
    types.removeDuplicates();
    return types;
}

int CardProperty::preference(const QStringList &types) const
{
    constexpr int least = 100;
    const QByteArray said = head_.value("PREF");
    bool isNumber = false;
    const int number = said.toInt(&isNumber);
    if (isNumber) return std::clamp(number, 1, least);
    return !said.isNull() || types.contains(u"pref"_s) ? 1 : least + 1;
}

QByteArray CardProperty::decodedBytes() const
{
    if (head_.isQuotedPrintable()) return decodedQuotedPrintable(value_);
    if (head_.isBase64()) return decodedBase64(value_);
    return value_;
}

QString CardProperty::text() const
{
    const bool isQuoted = head_.isQuotedPrintable();
    const QByteArray bytes = isQuoted ? decodedQuotedPrintable(value_) : value_;
    QString text = cardText(bytes, charsetOfCardBytes(bytes, head_.value("CHARSET"), fallback_));
    if (isQuoted) text.replace("\r\n"_L1, "\n"_L1);
    return text.contains(u'\\') ? unescapedCardText(text) : text;
}

// Disguised separators are text: the value is divided first and decoded then. Elsewhere the encoding comes
// first, for a character of several bytes may hold one that looks like a separator.
QStringList CardProperty::divided(char separator) const
{
    const bool isQuoted = head_.isQuotedPrintable();
    const QByteArray whole = isQuoted ? decodedQuotedPrintable(value_) : value_;
    const QByteArray charset = charsetOfCardBytes(whole, head_.value("CHARSET"), fallback_);
    QStringList pieces;
    if (isQuoted)
        for (const QByteArrayView piece : piecesOf(QByteArrayView(value_), separator))
            pieces << cardText(decodedQuotedPrintable(piece), charset).replace("\r\n"_L1, "\n"_L1);
    else
        pieces = piecesOf(cardText(whole, charset), QLatin1Char(separator));
    for (QString &piece : pieces)
        if (piece.contains(u'\\')) piece = unescapedCardText(piece);
    return pieces;
}

QStringList CardProperty::parts() const { return divided(';'); }

QStringList CardProperty::list() const { return divided(','); }

bool CardProperty::joinRow(QByteArrayView row, qsizetype end)
{
    if (value_.size() + row.size() >= CardLines::longestProperty) return false;
    value_ += '\n';
    value_ += row;
    place_.end = end;
    return true;
}
