#include "platform/InstancePlace.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStandardPaths>

QString instance_place::folder() { return QStandardPaths::writableLocation(QStandardPaths::TempLocation); }

// A pipe has a name among those of the whole machine, and no folder. The path has the user in it.
QString instance_place::socketName(const QString &path)
{
    const QByteArray whole = QDir::fromNativeSeparators(path).toCaseFolded().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(whole, QCryptographicHash::Sha256).toHex();
    return QStringLiteral("morvex-") + QString::fromLatin1(hash);
}
