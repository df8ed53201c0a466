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

// Shared by all properties of their names: nearly every one has one of these.
const std::array<QByteArray, 40> &knownNames()
{
    static const std::array<QByteArray, 40> names{
        "BEGIN",  "END",    "VERSION",    "FN",    "N",           "NICKNAME",    "PHOTO", "BDAY",
        "ADR",    "LABEL",  "TEL",        "EMAIL", "MAILER",      "TZ",          "GEO",   "TITLE",
        "ROLE",   "LOGO",   "AGENT",      "ORG",   "NOTE",        "REV",         "SOUND", "URL",
        "UID",    "KEY",    "CATEGORIES", "CLASS", "PRODID",      "SORT-STRING", "IMPP",  "KIND",
        "MEMBER", "SOURCE", "GENDER",     "LANG",  "ANNIVERSARY", "RELATED",     "FBURL", "CALURI"};
    return names;
}

// Null for an unknown one.
const QByteArray *knownName(QByteArrayView name)
{
    const auto &names = knownNames();
    const auto found = std::find_if(names.begin(), names.end(), [&](const QByteArray &known) {
        return known.size() == name.size() && name.compare(known, Qt::CaseInsensitive) == 0;
    });
    return found == names.end() ? nullptr : &*found;
}

bool isNameSign(char sign)
{
    return (sign >= 'A' && sign <= 'Z') || (sign >= 'a' && sign <= 'z') || (sign >= '0' && sign <= '9') ||
           sign == '-' || sign == '_';
}

QByteArray nameOfParameter(QByteArrayView name)
{
    static const std::array<QByteArray, 5> usual{"TYPE", "ENCODING", "CHARSET", "VALUE", "PREF"};
    for (const QByteArray &each : usual)
        if (each == name) return each;
    return name.toByteArray().toUpper();
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

QByteArray bytesOf(QByteArrayView view, CardBytes bytes)
{
    return bytes == CardBytes::Lasting ? QByteArray::fromRawData(view.data(), view.size())
                                       : view.toByteArray();
}

// In lower case; the usual ones share one text.
QString lowerType(QByteArrayView type)
{
    static const std::array usual{u"cell"_s, u"home"_s, u"work"_s,     u"voice"_s, u"pref"_s,
                                  u"fax"_s,  u"main"_s, u"internet"_s, u"mobile"_s};
    for (const QString &each : usual)
        if (each.size() == type.size() && QLatin1StringView(type).compare(each, Qt::CaseInsensitive) == 0)
            return each;
    return QString::fromUtf8(type).toLower();
}

// A value in quotation marks may hold several.
void takeTypes(QStringList &types, QByteArrayView value)
{
    for (;;) {
        const qsizetype comma = value.indexOf(',');
        const QByteArrayView type = (comma < 0 ? value : value.first(comma)).trimmed();
        if (!type.isEmpty()) types << lowerType(type);
        if (comma < 0) return;
        value = value.sliced(comma + 1);
    }
}
} // namespace

bool isKnownCardProperty(QByteArrayView name) { return knownName(name) != nullptr; }

CardHead::CardHead(QByteArrayView line, CardBytes bytes) : bytes_(bytes)
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
    if (!name_.isEmpty()) length_ = static_cast<qint32>(colon);
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
    const QByteArray *known = knownName(name);
    name_ = known != nullptr ? *known : name.toByteArray().toUpper();
}

// Quotation marks are no part of a value, and between them a comma divides nothing.
QByteArrayList CardHead::valuesIn(QByteArrayView text) const
{
    text = text.trimmed();
    if (!text.contains('"') && !text.contains(',')) return {bytesOf(text, bytes_)};
    if (text.startsWith('"') && text.endsWith('"') && text.count('"') == 2)
        return {bytesOf(text.sliced(1, text.size() - 2), bytes_)};
    QByteArrayList values;
    for (qsizetype at = 0; at <= text.size();) {
        qsizetype comma = outsideQuotes(text, ',', at);
        if (comma < 0) comma = text.size();
        const QByteArrayView value = text.sliced(at, comma - at).trimmed();
        values << (value.contains('"') ? value.toByteArray().replace('"', "").trimmed()
                                       : bytesOf(value, bytes_));
        at = comma + 1;
    }
    return values;
}

void CardHead::readParameter(QByteArrayView text)
{
    if (text.isEmpty()) return;
    const qsizetype equals = text.indexOf('=');
    if (equals > 0) {
        parameters_.push_back(
            {nameOfParameter(text.first(equals).trimmed()), valuesIn(text.sliced(equals + 1))});
        return;
    }
    const QByteArrayList values = valuesIn(text);
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

bool CardHead::isEncoded(std::initializer_list<const char *> names) const
{
    const auto isNamed = [&](const QByteArray &encoding) {
        return std::any_of(names.begin(), names.end(), [&](const char *name) {
            return encoding.compare(name, Qt::CaseInsensitive) == 0;
        });
    };
    return std::any_of(parameters_.begin(), parameters_.end(), [&](const CardParameter &parameter) {
        return parameter.name == "ENCODING" &&
               std::any_of(parameter.values.begin(), parameter.values.end(), isNamed);
    });
}

bool CardHead::isQuotedPrintable() const { return isEncoded({"QUOTED-PRINTABLE", "Q"}); }

bool CardHead::isBase64() const
{
    return isEncoded({"BASE64", "B"}) ||
           (values("ENCODING").isEmpty() && value("VALUE").compare("BINARY", Qt::CaseInsensitive) == 0);
}

CardProperty::CardProperty(CardHead head, QByteArrayView line, Place place,
                           std::shared_ptr<const QByteArray> fallbackCharset, CardBytes bytes)
    : head_(std::move(head)),
      value_(bytesOf(line.sliced(head_.length() + 1), bytes)),
      place_(place),
      fallback_(std::move(fallbackCharset))
{
}

QStringList CardProperty::types() const
{
    QStringList types;
    for (const CardParameter &parameter : head_.parameters()) {
        if (parameter.name != "TYPE") continue;
        for (const QByteArray &value : parameter.values)
            takeTypes(types, value);
    }
    if (types.size() < 2) return types;
    std::sort(types.begin(), types.end());
    types.erase(std::unique(types.begin(), types.end()), types.end());
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
    return QByteArrayView(value_).toByteArray(); // they may outlive the card
}

QString CardProperty::text() const
{
    const bool isQuoted = head_.isQuotedPrintable();
    const QByteArray bytes = isQuoted ? decodedQuotedPrintable(value_) : value_;
    QString text = cardText(bytes, charsetOfCardBytes(bytes, head_.value("CHARSET"), *fallback_));
    if (isQuoted) text.replace("\r\n"_L1, "\n"_L1);
    return text.contains(u'\\') ? unescapedCardText(text) : text;
}

// Disguised separators are text: the value is divided first and decoded then. Elsewhere the encoding comes
// first, for a character of several bytes may hold one that looks like a separator.
QStringList CardProperty::divided(char separator) const
{
    const bool isQuoted = head_.isQuotedPrintable();
    const QByteArray whole = isQuoted ? decodedQuotedPrintable(value_) : value_;
    const QByteArray charset = charsetOfCardBytes(whole, head_.value("CHARSET"), *fallback_);
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
