#include "store/sqlite/TextRules.h"

#include <QString>
#include <sqlite3.h>

namespace
{
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
    return compareUtf8({static_cast<const char *>(a), bytesA}, {static_cast<const char *>(b), bytesB});
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
