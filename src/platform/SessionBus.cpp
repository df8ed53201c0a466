#include "platform/SessionBus.h"

#include <QFileInfo>

bool sessionBusIsThere()
{
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty()) return address != QLatin1String("disabled:");
    return QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}
