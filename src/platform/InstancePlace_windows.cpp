#include "platform/InstancePlace.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace
{
// The names of the messages that nobody has heard yet, in their order.
QStringList waitingAt(const QString &path)
{
    const QFileInfo place(path);
    return QDir(place.path()).entryList({place.fileName() + u".*.call"_s}, QDir::Files, QDir::Name);
}
} // namespace

QString instance_place::folder() { return QStandardPaths::writableLocation(QStandardPaths::TempLocation); }

// A pipe has a name among those of the whole machine, and no folder. The path has the user in it.
QString instance_place::socketName(const QString &path)
{
    const QByteArray whole = QDir::fromNativeSeparators(path).toCaseFolded().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(whole, QCryptographicHash::Sha256).toHex();
    return u"morvex-"_s + QString::fromLatin1(hash);
}

// A pipe keeps nothing for whoever is busy, and loses what is under way when the caller goes: the message is a file, and the
// connection alone the news of it. By their names they stand in the order in which they were written.
void instance_place::say(QLocalSocket &, const QString &path, const QByteArray &message)
{
    const QStringList waiting = waitingAt(path);
    const int number = waiting.isEmpty() ? 0 : waiting.constLast().section(u'.', -3, -3).toInt() + 1;
    const QString place = QString::number(number).rightJustified(9, u'0');
    QSaveFile file(path + u'.' + place + u'.' + QUuid::createUuid().toString(QUuid::Id128) + u".call"_s);
    if (file.open(QIODevice::WriteOnly) && file.write(message) == message.size()) file.commit();
}

QList<QByteArray> instance_place::heard(QLocalSocket &caller, const QString &path)
{
    static qsizetype heardBefore = 0; // messages of callers that have not gone yet
    const QDir folder(QFileInfo(path).path());
    QList<QByteArray> messages;
    for (const QString &name : waitingAt(path)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly)) messages << file.readAll();
        file.close();
        file.remove();
    }
    if (messages.isEmpty() && heardBefore > 0)
        --heardBefore;
    else if (messages.isEmpty())
        messages << caller.readAll();
    else
        heardBefore += messages.size() - 1;
    return messages;
}
