#include "platform/Shell.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace
{
// The desktop wants a scheme; people and their contacts leave it out.
QUrl addressOf(const QString &target)
{
    if (QDir::isAbsolutePath(target)) return QUrl::fromLocalFile(target);
    const QUrl url(target);
    return url.scheme().isEmpty() ? QUrl(QStringLiteral("http://") + target) : url;
}
} // namespace

void DesktopShell::open(const QString &target) { QDesktopServices::openUrl(addressOf(target)); }
