#include "store/postgres/PostgresNotices.h"

#include <QList>

namespace
{
std::optional<StoreChange::What> whatIn(QByteArrayView letter)
{
    using enum StoreChange::What;
    if (letter == "i") return Added;
    if (letter == "u") return Changed;
    if (letter == "d") return Removed;
    return {};
}
} // namespace

std::optional<StoreChange> changeIn(QByteArrayView payload)
{
    const QList<QByteArray> words = payload.toByteArray().split(' ');
    if (words.size() != 3 || words.first().isEmpty()) return {};
    const auto what = whatIn(words[1]);
    if (!what) return {};
    StoreChange change{QString::fromUtf8(words.first()).toLower(), *what, {}, words[2] == "*"};
    if (change.all) return change;
    for (const QByteArray &word : words[2].split(',')) {
        bool isNumber = false;
        change.ids << word.toInt(&isNumber);
        if (!isNumber) return {};
    }
    return change;
}

StoreChange everythingChanged() { return {{}, StoreChange::What::Changed, {}, true}; }
