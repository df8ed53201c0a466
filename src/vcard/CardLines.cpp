#include "vcard/CardLines.h"

#include "vcard/CardProperty.h"

#include <algorithm>

namespace
{
bool isBlank(char sign) { return sign == ' ' || sign == '\t'; }

qsizetype placeOf(QByteArrayView file, char sign, qsizetype from)
{
    const qsizetype place = file.indexOf(sign, from);
    return place < 0 ? file.size() : place;
}

// Behind the sign of a soft break may stand a few blanks; looking for it through many would take for ever in
// a line that is made of them.
bool endsInSoftBreak(QByteArrayView bytes)
{
    constexpr int mostBlanks = 8;
    for (int i = 0; i < mostBlanks && !bytes.isEmpty() && isBlank(bytes.back()); ++i)
        bytes.chop(1);
    return bytes.endsWith('=');
}

bool isBase64(QByteArrayView row)
{
    row = row.trimmed();
    return !row.isEmpty() && std::all_of(row.begin(), row.end(), [](char sign) {
        return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || (sign >= '0' && sign <= '9') ||
               sign == '+' || sign == '/' || sign == '=';
    });
}

// A known name or a private one, its parameters, and a colon.
bool isPropertyOfAKnownName(QByteArrayView row)
{
    const qsizetype colon = row.indexOf(':');
    if (colon < 0) return false;
    QByteArrayView name = row.first(colon);
    if (const qsizetype parameters = name.indexOf(';'); parameters >= 0) name = name.first(parameters);
    if (const qsizetype group = name.indexOf('.'); group >= 0) name = name.sliced(group + 1);
    name = name.trimmed();
    const bool isPrivate = name.startsWith("X-") || name.startsWith("x-");
    return isPrivate ? !name.contains(' ') : isKnownCardProperty(name);
}
} // namespace

CardLines::Row CardLines::rowAt(qsizetype at)
{
    if (lineFeed_ < at) lineFeed_ = placeOf(file_, '\n', at);
    if (carriageReturn_ < at) carriageReturn_ = placeOf(file_, '\r', at);
    const qsizetype end = std::min(lineFeed_, carriageReturn_);
    Row row{file_.sliced(at, end - at), end};
    const QByteArrayView rest = file_.sliced(end);
    for (const char *lineEnd : {"\r\r\n", "\r\n", "\r", "\n"})
        if (rest.startsWith(lineEnd)) {
            row.next += static_cast<qsizetype>(qstrlen(lineEnd));
            break;
        }
    return row;
}

void CardLines::append(Line &line, QByteArrayView bytes)
{
    if (!isJoined_) joined_ = line.bytes.toByteArray();
    isJoined_ = true;
    line.joined = true;
    if (joined_.size() + bytes.size() > longestProperty)
        line.tooLong = true;
    else
        joined_ += bytes;
    line.bytes = joined_;
}

void CardLines::take(Line &line, const Row &row)
{
    at_ = row.next;
    ++number_;
    line.end = at_;
}

// Whether the row belongs to the line; if so, whether it begins with a blank that is the fold's.
bool CardLines::goesOn(const Line &line, Row row, bool &withBlank)
{
    withBlank = !row.bytes.isEmpty() && isBlank(row.bytes.front());
    const bool softBreak = endsInSoftBreak(line.bytes);
    if (!softBreak && (withBlank || !isBase64(row.bytes))) return withBlank;
    if (!isDisguiseKnown_) {
        constexpr qsizetype longestHead = 4096;
        const CardHead head(line.bytes.first(std::min(line.bytes.size(), longestHead)));
        // A head may be folded itself, and is tried again with its next row.
        isDisguiseKnown_ = head.isWhole() || line.bytes.size() > longestHead;
        disguise_ = head.isQuotedPrintable() ? Disguise::QuotedPrintable
                    : head.isBase64()        ? Disguise::Base64
                                             : Disguise::None;
    }
    if (disguise_ == Disguise::QuotedPrintable && softBreak && withBlank)
        withBlank = false; // it is the text's
    else if (withBlank)
        return true;
    if (disguise_ == Disguise::QuotedPrintable) return softBreak && !isPropertyOfAKnownName(row.bytes);
    return disguise_ == Disguise::Base64 && isBase64(row.bytes);
}

void CardLines::join(Line &line)
{
    while (at_ < file_.size()) {
        const Row row = rowAt(at_);
        bool withBlank = false;
        if (!goesOn(line, row, withBlank)) return;
        if (disguise_ == Disguise::QuotedPrintable && endsInSoftBreak(line.bytes)) {
            if (row.bytes.isEmpty()) { // the text is over, its sign stays with it
                take(line, row);
                return;
            }
            append(line, {});
            joined_.truncate(joined_.lastIndexOf('='));
        }
        append(line, withBlank ? row.bytes.sliced(1) : row.bytes);
        take(line, row);
    }
}

bool CardLines::next(Line &line)
{
    Row row;
    do {
        if (at_ >= file_.size()) return false;
        row = rowAt(at_);
        line = {row.bytes, number_, at_, at_, row.bytes.size() > longestProperty, false};
        take(line, row);
    } while (row.bytes.trimmed().isEmpty());
    isJoined_ = false;
    isDisguiseKnown_ = false;
    disguise_ = Disguise::None;
    join(line);
    return true;
}
