#include "platform/store/TextRules.h"

#include <memory>
#include <QString>
#include <sqlite3.h>
#include <unicode/ucol.h>

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

// A character beyond 16 bits stands in two places.
qsizetype placesAt(QStringView text, qsizetype place)
{
    const bool pair =
        text[place].isHighSurrogate() && place + 1 < text.size() && text[place + 1].isLowSurrogate();
    return pair ? 2 : 1;
}

bool equalIgnoringCase(QChar a, QChar b) { return a == b || a.toCaseFolded() == b.toCaseFolded(); }

QStringView textOf(sqlite3_value *value)
{
    const auto *text = static_cast<const char16_t *>(sqlite3_value_text16(value));
    return {text, sqlite3_value_bytes16(value) / qsizetype{sizeof(char16_t)}};
}

int collate(void *, int bytesA, const void *a, int bytesB, const void *b)
{
    const QByteArrayView textA(static_cast<const char *>(a), bytesA);
    const QByteArrayView textB(static_cast<const char *>(b), bytesB);
    UErrorCode status = U_ZERO_ERROR;
    const int order = ucol_strcollUTF8(theCollator(), textA.data(), bytesA, textB.data(), bytesB, &status);
    if (order != 0 || textA == textB) return order;
    return compareForm(QString::fromUtf8(textA), QString::fromUtf8(textB));
}

// The pattern comes first and the text, which may be a number, second.
void like(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        sqlite3_result_null(context);
    else
        sqlite3_result_int(context, matchesLike(textOf(arguments[0]), textOf(arguments[1])) ? 1 : 0);
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
    return ownRules + QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(version), sizeof version).toHex());
}

// Walks both once; on a mismatch the last % takes one character more.
bool matchesLike(QStringView pattern, QStringView text)
{
    qsizetype p = 0;
    qsizetype t = 0;
    qsizetype afterPercent = -1;
    qsizetype retryAt = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == u'%') {
            afterPercent = ++p;
            retryAt = t;
        } else if (p < pattern.size() && pattern[p] == u'_') {
            ++p;
            t += placesAt(text, t);
        } else if (p < pattern.size() && equalIgnoringCase(pattern[p], text[t])) {
            ++p;
            ++t;
        } else if (afterPercent >= 0) {
            p = afterPercent;
            t = ++retryAt;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'%')
        ++p;
    return p == pattern.size();
}

void registerTextRules(sqlite3 *connection)
{
    constexpr int likeArguments = 2;
    sqlite3_create_collation(connection, "MORVEX", SQLITE_UTF8, nullptr, collate);
    sqlite3_create_function(connection, "like", likeArguments, SQLITE_UTF16 | SQLITE_DETERMINISTIC, nullptr,
                            like, nullptr, nullptr);
}
