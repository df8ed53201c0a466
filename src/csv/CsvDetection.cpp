#include "csv/CsvDetection.h"

#include "csv/CsvCells.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <map>
#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace
{
constexpr char mark[] = "\xEF\xBB\xBF";

// Latin letters have a zero in every other byte.
bool hasZeros(const QByteArray &file, qsizetype first)
{
    constexpr qsizetype enough = 400;
    const qsizetype end = std::min(file.size(), enough);
    if (end < 4) return false;
    qsizetype zeros = 0;
    for (qsizetype i = first; i < end; i += 2)
        if (file[i] == '\0') ++zeros;
    return zeros * 3 >= end;
}

QString withoutMark(const QString &text)
{
    return text.startsWith(QChar::ByteOrderMark) ? text.sliced(1) : text;
}

// Half a character, which nobody could write again, becomes a question mark.
QString fromUtf16(const QByteArray &file, QStringDecoder::Encoding order)
{
    const QString text = QStringDecoder(order)(file);
    return withoutMark(QString::fromUtf8(text.toUtf8()));
}

// How many rows have the commonest number of cells above one, and that number.
std::pair<std::size_t, qsizetype> agreement(const QString &text, QChar delimiter)
{
    constexpr std::size_t enough = 20;
    std::map<qsizetype, std::size_t> rows;
    for (const QStringList &row : csvCells(text, delimiter, enough))
        if (row.size() > 1) ++rows[row.size()];
    std::pair<std::size_t, qsizetype> best{0, 0};
    for (const auto &[cells, times] : rows)
        best = std::max(best, {times, cells});
    return best;
}
} // namespace

CsvText csvText(const QByteArray &file)
{
    if (file.startsWith(mark)) return {QString::fromUtf8(file.sliced(3)), "utf-8-sig"};
    if (file.startsWith("\xFF\xFE") || hasZeros(file, 1))
        return {fromUtf16(file, QStringDecoder::Utf16LE), "utf-16"};
    if (file.startsWith("\xFE\xFF") || hasZeros(file, 0))
        return {fromUtf16(file, QStringDecoder::Utf16BE), "utf-16"};
    if (QUtf8StringView(file).isValidUtf8()) return {QString::fromUtf8(file), "utf-8"};
    return {csvText(file, "windows-1252").text, "cp1252"};
}

CsvText csvText(const QByteArray &file, const QByteArray &encoding)
{
    const DecodedText decoded = decodedText(file, encoding);
    return {withoutMark(decoded.known ? decoded.text : QString::fromLatin1(file)), encoding};
}

QChar csvDelimiter(const QString &text)
{
    std::pair<std::size_t, qsizetype> best{0, 0};
    QChar delimiter = u',';
    for (const QChar candidate : u",;\t|"_s) {
        const auto found = agreement(text, candidate);
        if (found <= best) continue;
        best = found;
        delimiter = candidate;
    }
    return delimiter;
}

QChar takeSeparatorLine(QString &text)
{
    static const QRegularExpression line(u"\\A\"?sep=([^\"\r\n])\"?[ \\t]*(\\r\\n|\\r|\\n|\\z)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch found = line.match(text);
    if (!found.hasMatch()) return {};
    const QChar delimiter = found.captured(1).front();
    text.remove(0, found.capturedLength());
    return delimiter;
}

bool isHeaderRow(const QStringList &row)
{
    static const QRegularExpression value(
        u"@|^https?://|^www\\.|\\d[\\d ()./-]{4,}\\d|\\d{6}|^\\d{1,4}[-./]\\d{1,2}[-./]\\d{1,4}$"_s,
        QRegularExpression::CaseInsensitiveOption);
    return std::none_of(row.begin(), row.end(),
                        [](const QString &cell) { return value.match(cell.trimmed()).hasMatch(); });
}
