#include "vcard/CardPhoto.h"

#include "vcard/CardDecoding.h"
#include "vcard/CardProperty.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
bool isDataUri(const QByteArray &value)
{
    return value.first(qMin<qsizetype>(value.size(), 5)).compare("data:", Qt::CaseInsensitive) == 0;
}

// "data:image/png;base64,…", which some programs escape as if it were text.
QByteArray bytesOfDataUri(QByteArray value)
{
    if (value.contains('\\')) value.replace("\\;", ";").replace("\\,", ",").replace("\\:", ":");
    const qsizetype comma = value.indexOf(',');
    if (comma < 0) return {};
    const QByteArray content = value.sliced(comma + 1);
    const bool isBase64 = value.first(comma).toLower().endsWith(";base64");
    return isBase64 ? decodedBase64(content) : QByteArray::fromPercentEncoding(content);
}

bool isAddress(const QByteArray &value)
{
    static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]*\\\\?:"_s);
    constexpr qsizetype enough = 64; // no scheme is that long
    return scheme.match(QString::fromLatin1(value.first(qMin(value.size(), enough)))).hasMatch();
}
} // namespace

QByteArray pictureKind(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xD8\xFF")) return "jpeg";
    if (bytes.startsWith("\x89PNG")) return "png";
    if (bytes.startsWith("GIF8")) return "gif";
    if (bytes.startsWith("BM")) return "bmp";
    if (bytes.startsWith("RIFF") && bytes.size() >= 12 && bytes.sliced(8, 4) == "WEBP") return "webp";
    if (bytes.startsWith(QByteArray("II*\0", 4)) || bytes.startsWith(QByteArray("MM\0*", 4))) return "tiff";
    return {};
}

std::optional<CardPhoto> cardPhoto(const CardProperty &property)
{
    const QByteArray raw = property.rawValue().trimmed();
    if (raw.isEmpty()) return {};
    if (isDataUri(raw)) {
        const QByteArray bytes = bytesOfDataUri(raw);
        return bytes.isEmpty() ? std::nullopt : std::optional(CardPhoto{bytes, {}});
    }
    const CardPhoto address{{}, property.text().trimmed()};
    if (isAddress(raw)) return address;
    if (property.head().isBase64() || property.head().isQuotedPrintable()) {
        const QByteArray bytes = property.decodedBytes();
        return bytes.isEmpty() ? std::nullopt : std::optional(CardPhoto{bytes, {}});
    }
    const QByteArray bytes = decodedBase64(raw); // programs that forget to say so
    if (!pictureKind(bytes).isEmpty()) return CardPhoto{bytes, {}};
    return address;
}
