#include "vcard/CardText.h"

#include "platform/TextEncoding.h"

#include <QStringDecoder>

namespace
{
constexpr char mark[] = "\xEF\xBB\xBF";

// Latin letters have a zero in every other byte, whichever way round the pairs are written.
bool hasZeros(const QByteArray &file, qsizetype first)
{
    constexpr qsizetype enough = 64; // a head and a version
    const qsizetype end = qMin(file.size(), enough);
    if (end < 4) return false;
    qsizetype zeros = 0;
    for (qsizetype i = first; i < end; i += 2)
        if (file[i] == '\0') ++zeros;
    return zeros * 3 >= end; // two of three letters
}

bool isUtf8(QByteArrayView bytes) { return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8(); }

QString decoded(QByteArrayView bytes, const QByteArray &charset, bool *sound)
{
    const DecodedText decoded = decodedText(bytes, charset);
    *sound = decoded.sound && !decoded.text.contains(QChar::ReplacementCharacter);
    return decoded.known ? decoded.text : QString::fromLatin1(bytes);
}

// A name that says less than what programs write under it.
QByteArray wideCharset(const QByteArray &named)
{
    if (named.isEmpty()) return {};
    // With an end of its own, which a piece of the file has not: the decoder's maker wants one.
    QByteArray name = QByteArrayView(named).trimmed().toByteArray().toLower();
    if (name == "utf-8" || name == "utf8") return {};
    if (name == "iso-8859-1" || name == "latin1" || name == "us-ascii" || name == "ascii" || name == "ansi")
        return usualCardCharset;
    return name;
}

// How many bytes a character beginning with that one has in UTF-8; 0 for none.
int lengthOfCharacter(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// Far more sound characters beyond ASCII than broken ones: a text that was cut, not one in another encoding.
bool isMostlyUtf8(const QByteArray &bytes)
{
    qsizetype sound = 0;
    qsizetype broken = 0;
    for (qsizetype i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        const int length = lengthOfCharacter(lead);
        const bool whole =
            length > 0 && i + length <= bytes.size() && isUtf8(QByteArrayView(bytes).sliced(i, length));
        whole ? ++sound : ++broken;
        i += whole ? length : 1;
    }
    return sound > 2 * broken;
}
} // namespace

QByteArray plainCardBytes(const QByteArray &file)
{
    if (file.startsWith(mark)) return file.sliced(3);
    QStringDecoder utf16;
    if (file.startsWith("\xFF\xFE") || hasZeros(file, 1))
        utf16 = QStringDecoder(QStringDecoder::Utf16LE);
    else if (file.startsWith("\xFE\xFF") || hasZeros(file, 0))
        utf16 = QStringDecoder(QStringDecoder::Utf16BE);
    else
        return file;
    const QString text = utf16(file);
    return (text.startsWith(QChar::ByteOrderMark) ? text.sliced(1) : text).toUtf8();
}

QByteArray charsetOfCardBytes(const QByteArray &bytes, const QByteArray &named, const QByteArray &fallback)
{
    const bool valid = isUtf8(bytes);
    QByteArray wanted = wideCharset(named);
    if (!wanted.isEmpty()) {
        bool sound = false;
        decoded(bytes, wanted, &sound);
        if (sound) return wanted;
    }
    if (valid || isMostlyUtf8(bytes)) return {};
    return fallback;
}

QString cardText(QByteArrayView bytes, const QByteArray &charset)
{
    if (charset.isEmpty()) return QString::fromUtf8(bytes);
    bool sound = false;
    return decoded(bytes, charset, &sound);
}
