#include "platform/TextOrder.h"

#include <array>
#include <memory>
#include <unicode/ucol.h>
#include <unicode/uversion.h>

namespace
{
// The toolkit's collator takes no UTF-8, in which the store keeps its texts; turning both sides into UTF-16
// for each comparison took longer than to compare and sort them.
using Collator = std::unique_ptr<UCollator, decltype(&ucol_close)>;

// A locale of its own: the order of the database must not follow the machine's.
Collator makeCollator(UColAttributeValue strength)
{
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(ucol_open("pt_PT", &status), &ucol_close);
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, strength, &status);
    ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
    if (U_FAILURE(status)) qFatal("no collation: %s", u_errorName(status));
    return collator;
}

const UCollator *theCollator()
{
    static const Collator collator = makeCollator(UCOL_SECONDARY); // neither case nor form counts
    return collator.get();
}

// The library counts case and form ("1a" and "1ª") as one level. Once the case is folded away what is left is
// the form; few pairs of texts ever come so far.
int compareForm(const QString &a, const QString &b)
{
    static const Collator collator = makeCollator(UCOL_TERTIARY);
    const QString foldedA = a.toCaseFolded();
    const QString foldedB = b.toCaseFolded();
    return ucol_strcoll(collator.get(), QStringView(foldedA).utf16(), static_cast<int32_t>(foldedA.size()),
                        QStringView(foldedB).utf16(), static_cast<int32_t>(foldedB.size()));
}
} // namespace

int compareText(QStringView a, QStringView b)
{
    const int order = ucol_strcoll(theCollator(), a.utf16(), static_cast<int32_t>(a.size()), b.utf16(),
                                   static_cast<int32_t>(b.size()));
    return order != 0 || a == b ? order : compareForm(a.toString(), b.toString());
}

QString textOrderVersion()
{
    constexpr char16_t ownRules = u'b'; // the next letter when compareText itself comes to say something else
    UVersionInfo version{};
    ucol_getVersion(theCollator(), version);
    const QByteArray collation(reinterpret_cast<const char *>(version), sizeof version);
    const int folding = QChar::currentUnicodeVersion(); // the toolkit's, which folds the case away
    return ownRules + QString::fromLatin1(collation.toHex()) + u'u' + QString::number(folding);
}

int compareUtf8(QByteArrayView a, QByteArrayView b)
{
    UErrorCode status = U_ZERO_ERROR;
    const int order = ucol_strcollUTF8(theCollator(), a.data(), static_cast<int32_t>(a.size()), b.data(),
                                       static_cast<int32_t>(b.size()), &status);
    return order != 0 || a == b ? order : compareForm(QString::fromUtf8(a), QString::fromUtf8(b));
}

QString textLibraryVersion()
{
    UVersionInfo version;
    std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
    u_getVersion(version);
    u_versionToString(version, text.data());
    return QString::fromLatin1(text.data());
}
