#include "platform/SingleInstance.h"

#include "platform/ProgramFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace
{
constexpr int patience = 2000;   // ms for the first one to take the call
constexpr qsizetype digits = 16; // a socket's path must stay short

QString nameFor(const QString &folder)
{
    const QString resolved = QDir(folder).canonicalPath();
    const QByteArray path = (resolved.isEmpty() ? QDir::cleanPath(folder) : resolved).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex();
    return QStringLiteral("morvex-") + QString::fromLatin1(hash.left(digits));
}
} // namespace

SingleInstance::SingleInstance(const QString &programFolder)
    : SingleInstance(programFolder, QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
{
}

SingleInstance::SingleInstance(const QString &programFolder, const QString &runtimeFolder)
    : address_(fileIn(runtimeFolder, nameFor(programFolder))),
      lock_(address_ + QStringLiteral(".lock")),
      server_(new QLocalServer(this))
{
    lock_.setStaleLockTime(0); // age says nothing: a lock is stale when its process is gone
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *call = server_->nextPendingConnection())
            call->deleteLater();
        Q_EMIT startedAgain();
    });
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim()
{
    if (!lock_.tryLock(0) && lock_.error() == QLockFile::LockFailedError) return !callFirst();
    listen();
    return true;
}

// The first may hold the lock already and not listen yet.
bool SingleInstance::callFirst() const
{
    constexpr int pause = 20; // ms
    for (int waited = 0; waited < patience; waited += pause) {
        QLocalSocket call;
        call.connectToServer(address_);
        if (call.waitForConnected(patience)) return true;
        QThread::msleep(pause);
    }
    return false;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(address_);
    server_->listen(address_);
}
