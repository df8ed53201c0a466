#include "platform/TextEncoding.h"

#include <memory>
#include <QStringConverter>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <unicode/ucnv_err.h>

namespace
{
using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

// Names are compared without regard to case, blanks and dashes. Null for an unknown one.
Converter converterFor(const QByteArray &encoding)
{
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(encoding.isEmpty() ? nullptr : ucnv_open(encoding.constData(), &status), &ucnv_close);
    if (U_FAILURE(status)) converter.reset();
    return converter;
}

// Each sequence without a meaning becomes one character, and is noted.
void U_CALLCONV replaceUnreadable(const void *noted, UConverterToUnicodeArgs *arguments, const char *,
                                  int32_t, UConverterCallbackReason reason, UErrorCode *status)
{
    if (reason > UCNV_IRREGULAR) return;
    *status = U_ZERO_ERROR;
    constexpr char16_t replacement = QChar::ReplacementCharacter;
    ucnv_cbToUWriteUChars(arguments, &replacement, 1, 0, status);
    *static_cast<bool *>(const_cast<void *>(noted)) = true;
}

void U_CALLCONV replaceUnwritable(const void *, UConverterFromUnicodeArgs *arguments, const UChar *, int32_t,
                                  UChar32, UConverterCallbackReason reason, UErrorCode *status)
{
    if (reason > UCNV_IRREGULAR) return;
    *status = U_ZERO_ERROR;
    ucnv_cbFromUWriteBytes(arguments, "?", 1, 0, status);
}

// The toolkit's own, of the Unicode family, are the faster ones.
DecodedText decodedByToolkit(QByteArrayView bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return {text, true, !decoder.hasError()};
}
} // namespace

DecodedText decodedText(QByteArrayView bytes, const QByteArray &encoding)
{
    if (const auto own = QStringConverter::encodingForName(encoding.constData());
        own && *own != QStringConverter::System)
        return decodedByToolkit(bytes, *own);
    const Converter converter = converterFor(encoding);
    if (!converter) return {};
    UErrorCode status = U_ZERO_ERROR;
    bool unreadable = false;
    ucnv_setToUCallBack(converter.get(), &replaceUnreadable, &unreadable, nullptr, nullptr, &status);
    // No encoding has more characters than twice the bytes.
    QString text(bytes.size() * 2 + 16, Qt::Uninitialized);
    auto *first = reinterpret_cast<char16_t *>(text.data());
    auto *end = first;
    const char *source = bytes.data();
    ucnv_toUnicode(converter.get(), &end, first + text.size(), &source, bytes.data() + bytes.size(), nullptr,
                   true, &status);
    text.truncate(end - first);
    return {text, true, !unreadable && U_SUCCESS(status)};
}

QByteArray encodedText(const QString &text, const QByteArray &encoding)
{
    if (const auto own = QStringConverter::encodingForName(encoding.constData());
        own && *own != QStringConverter::System)
        return QStringEncoder(*own)(text);
    const Converter converter = converterFor(encoding);
    if (!converter) return {};
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter.get(), &replaceUnwritable, nullptr, nullptr, nullptr, &status);
    QByteArray bytes(UCNV_GET_MAX_BYTES_FOR_STRING(text.size(), ucnv_getMaxCharSize(converter.get())),
                     Qt::Uninitialized);
    char *end = bytes.data();
    const auto *source = reinterpret_cast<const char16_t *>(text.constData());
    ucnv_fromUnicode(converter.get(), &end, bytes.data() + bytes.size(), &source, source + text.size(),
                     nullptr, true, &status);
    bytes.truncate(end - bytes.constData());
    return bytes;
}
