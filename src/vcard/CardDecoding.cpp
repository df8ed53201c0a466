#include "vcard/CardDecoding.h"

namespace
{
int valueOfHexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return -1;
}

// Where a soft break that begins behind a "=" ends; the place itself if there is none.
qsizetype endOfSoftBreak(QByteArrayView coded, qsizetype at)
{
    qsizetype end = at;
    while (end < coded.size() && (coded[end] == ' ' || coded[end] == '\t'))
        ++end;
    if (end == coded.size()) return end;
    if (coded[end] == '\r') ++end;
    if (end < coded.size() && coded[end] == '\n') return end + 1;
    return coded[end - 1] == '\r' ? end : at;
}

template<class Text, class Character, class Take>
void eachPiece(const Text &value, Character separator, Character escape, const Take &take)
{
    qsizetype begin = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == escape) {
            ++i;
        } else if (value[i] == separator) {
            take(begin, i - begin);
            begin = i + 1;
        }
    }
    take(begin, value.size() - begin);
}
} // namespace

QByteArray decodedQuotedPrintable(QByteArrayView coded)
{
    QByteArray bytes;
    bytes.reserve(coded.size());
    for (qsizetype i = 0; i < coded.size(); ++i) {
        if (coded[i] != '=') {
            bytes += coded[i];
            continue;
        }
        const int high = i + 2 < coded.size() ? valueOfHexDigit(coded[i + 1]) : -1;
        const int low = high >= 0 ? valueOfHexDigit(coded[i + 2]) : -1;
        if (low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
            continue;
        }
        const qsizetype next = endOfSoftBreak(coded, i + 1);
        if (next == i + 1 && next < coded.size())
            bytes += '=';
        else
            i = next - 1;
    }
    return bytes;
}

QByteArray decodedBase64(QByteArrayView coded)
{
    QByteArray tight;
    tight.reserve(coded.size());
    for (const char sign : coded)
        if (sign != ' ' && sign != '\t' && sign != '\r' && sign != '\n') tight += sign;
    while (tight.endsWith('='))
        tight.chop(1);
    const auto result = QByteArray::fromBase64Encoding(tight, QByteArray::AbortOnBase64DecodingErrors);
    return result ? result.decoded : QByteArray();
}

QString unescapedCardText(QStringView text)
{
    if (!text.contains(u'\\')) return text.toString();
    QString plain;
    plain.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1] : QChar();
        if (next == u'n' || next == u'N') {
            plain += u'\n';
            ++i;
        } else if (next == u',' || next == u';' || next == u':' || next == u'"' || next == u'\\') {
            plain += next;
            ++i;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

std::vector<QByteArrayView> piecesOf(QByteArrayView value, char separator)
{
    std::vector<QByteArrayView> pieces;
    eachPiece(value, separator, '\\',
              [&](qsizetype begin, qsizetype length) { pieces.push_back(value.sliced(begin, length)); });
    return pieces;
}

QStringList piecesOf(const QString &value, QChar separator)
{
    QStringList pieces;
    pieces.reserve(value.count(separator) + 1);
    eachPiece(value, separator, QChar(u'\\'),
              [&](qsizetype begin, qsizetype length) { pieces << value.sliced(begin, length); });
    return pieces;
}
