#include "platform/InstancePlace.h"

#include <QStandardPaths>

QString instance_place::folder() { return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation); }

// The socket is a file.
QString instance_place::socketName(const QString &path) { return path; }
