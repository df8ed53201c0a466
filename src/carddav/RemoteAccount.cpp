#include "carddav/RemoteAccount.h"

#include "carddav/Href.h"

#include <QHostAddress>

namespace
{
bool isThisMachine(const QString &host)
{
    return host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 ||
           QHostAddress(host).isLoopback();
}

bool isAddress(const QUrl &url)
{
    const bool known = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    return url.isValid() && known && !url.host().isEmpty() && url.port() != 0;
}
} // namespace

std::optional<QUrl> remoteAddress(const QString &text)
{
    const QString typed = text.trimmed();
    const bool hasScheme = typed.contains(QLatin1String("://"));
    for (const QChar sign : typed)
        if (sign.isSpace() || !sign.isPrint()) return std::nullopt;
    QUrl url(hasScheme ? typed : QStringLiteral("https://") + typed, QUrl::TolerantMode);
    if (!hasScheme && isThisMachine(url.host())) url.setScheme(QStringLiteral("http"));
    if (!isAddress(url)) return std::nullopt;
    url.setUserInfo({});
    return addressAt(url, normalHref(url, url.path(QUrl::FullyEncoded)));
}

bool isExposed(const QUrl &address)
{
    return address.scheme() != QLatin1String("https") && !isThisMachine(address.host());
}
