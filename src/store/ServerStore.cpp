#include "store/ServerStore.h"

bool server_store::isAddress(const QString &text)
{
    const auto begins = [&](QLatin1StringView scheme) {
        return text.trimmed().startsWith(scheme, Qt::CaseInsensitive);
    };
    return begins(QLatin1StringView("postgresql://")) || begins(QLatin1StringView("postgres://"));
}
