// Where a running program is known by, and how a later start speaks to it: in the user's own surroundings, so that two people
// on one machine do not call each other.
#pragma once

#include <QList>

class QByteArray;
class QLocalSocket;
class QString;

namespace instance_place
{
// The user's folder for what belongs to running programs.
QString folder();

// The name by which a socket is reached that stands for that path in such a folder.
QString socketName(const QString &path);

// Says that message to the first, which has taken the connection, and which that path stands for. The system keeps it until
// the first comes to it, however long it is busy.
void say(QLocalSocket &first, const QString &path, const QByteArray &message);

// What has been said by the caller that goes, and by others until then; one that said nothing counts as an empty message.
QList<QByteArray> heard(QLocalSocket &caller, const QString &path);
} // namespace instance_place
