#include "platform/WindowsRegistry.h"

namespace
{
// Only then is it known whether the change was taken.
bool written(QSettings &settings)
{
    settings.sync();
    return settings.status() == QSettings::NoError;
}

// The value of a key itself has no name; this is what the toolkit calls it.
QString named(const QString &name) { return name.isEmpty() ? QStringLiteral("Default") : name; }
} // namespace

QString WindowsRegistry::readString(Root root, const QString &key, const QString &name)
{
    return QSettings(path(root, key), place_.format).value(named(name)).toString();
}

bool WindowsRegistry::writeString(Root root, const QString &key, const QString &name, const QString &value)
{
    QSettings settings(path(root, key), place_.format);
    settings.setValue(named(name), value);
    return written(settings);
}

bool WindowsRegistry::deleteValue(Root root, const QString &key, const QString &name)
{
    QSettings settings(path(root, key), place_.format);
    if (!settings.contains(named(name))) return false;
    settings.remove(named(name));
    return written(settings);
}

QString WindowsRegistry::path(Root root, const QString &key) const
{
    return (root == Root::CurrentUser ? place_.currentUser : place_.localMachine) + u'\\' + key;
}
