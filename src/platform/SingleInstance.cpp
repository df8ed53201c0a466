#include "platform/SingleInstance.h"

#include "platform/InstancePlace.h"
#include "platform/ProgramFolder.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

namespace
{
constexpr int patience = 2000;   // ms for the first one to take the call
constexpr qsizetype digits = 16; // a socket's path must stay short

QString pathFor(const QString &runtimeFolder, const QString &folder)
{
    const QString resolved = QDir(folder).canonicalPath();
    const QByteArray path = (resolved.isEmpty() ? QDir::cleanPath(folder) : resolved).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex();
    return fileIn(runtimeFolder, QStringLiteral("morvex-") + QString::fromLatin1(hash.left(digits)));
}

// The whole stands behind its length, so that one that broke off is told from one that says little.
QByteArray messageOf(const SingleInstance::Call &call)
{
    QByteArray words, message;
    QDataStream inner(&words, QIODevice::WriteOnly), outer(&message, QIODevice::WriteOnly);
    inner << call.forward << call.files;
    outer << words;
    return message;
}

// A caller that says nothing understandable wants at least that the program shows itself.
SingleInstance::Call callOf(const QByteArray &message)
{
    QByteArray words;
    QDataStream outer(message);
    outer >> words;
    SingleInstance::Call call;
    QDataStream inner(words);
    inner >> call.forward >> call.files;
    return outer.status() == QDataStream::Ok && inner.status() == QDataStream::Ok ? call
                                                                                  : SingleInstance::Call();
}
} // namespace

SingleInstance::SingleInstance(const QString &programFolder)
    : SingleInstance(programFolder, instance_place::folder())
{
}

SingleInstance::SingleInstance(const QString &programFolder, const QString &runtimeFolder)
    : path_(pathFor(runtimeFolder, programFolder)), address_(instance_place::socketName(path_)),
      lock_(path_ + QStringLiteral(".lock")),
      server_(new QLocalServer(this))
{
    lock_.setStaleLockTime(0); // age says nothing: a lock is stale when its process is gone
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *caller = server_->nextPendingConnection())
            answer(*caller);
    });
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim(const Call &call)
{
    if (!lock_.tryLock(0) && lock_.error() == QLockFile::LockFailedError) return !callFirst(call);
    listen();
    return true;
}

// The first may hold the lock already and not listen yet.
bool SingleInstance::callFirst(const Call &call) const
{
    constexpr int pause = 20; // ms
    for (int waited = 0; waited < patience; waited += pause) {
        QLocalSocket first;
        first.connectToServer(address_);
        if (first.waitForConnected(patience)) {
            instance_place::say(first, path_, messageOf(call));
            return true;
        }
        QThread::msleep(pause);
    }
    return false;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(address_);
    server_->listen(address_);
}

// A caller has said everything when it goes.
void SingleInstance::answer(QLocalSocket &caller)
{
    const auto gone = [this, &caller] {
        for (const QByteArray &message : instance_place::heard(caller, path_))
            hear(message);
        caller.deleteLater();
    };
    if (caller.state() == QLocalSocket::UnconnectedState) return gone();
    connect(&caller, &QLocalSocket::disconnected, this, gone);
}

void SingleInstance::hear(const QByteArray &message)
{
    const Call call = callOf(message);
    if (call.forward || !call.files.isEmpty()) Q_EMIT startedAgain(call.files);
}
