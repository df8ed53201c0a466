// For a build without the library that speaks with servers: it says so.
#include "platform/Failure.h"
#include "store/ServerStore.h"

#include <QUrl>

namespace
{
[[noreturn]] void raise(const QString &address)
{
    throw Failure(Failure::StoreError, server_store::shown(address),
                  QStringLiteral("this edition reaches no servers"), Failure::Kind::ServersNotReached);
}
} // namespace

QString server_store::shown(const QString &address)
{
    const QUrl url(address.trimmed());
    const QString nothingToShow = QStringLiteral("postgresql://…");
    return url.isValid() ? url.toString(QUrl::RemovePassword | QUrl::RemoveQuery | QUrl::RemoveFragment)
                         : nothingToShow;
}

std::unique_ptr<Store> server_store::open(const QString &address) { raise(address); }

std::unique_ptr<Store> server_store::openReadOnly(const QString &address) { raise(address); }
