#include "platform/InstancePlace.h"

#include <QLocalSocket>
#include <QStandardPaths>

QString instance_place::folder() { return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation); }

// The socket is a file.
QString instance_place::socketName(const QString &path) { return path; }

void instance_place::say(QLocalSocket &first, const QString &, const QByteArray &message)
{
    constexpr int patience = 30000; // ms for it to take more words than the system keeps for it meanwhile
    first.write(message);
    while (first.bytesToWrite() > 0 && first.waitForBytesWritten(patience)) {
    }
}

QList<QByteArray> instance_place::heard(QLocalSocket &caller, const QString &) { return {caller.readAll()}; }
