// Named values that belong to the user's desktop and not to this program. Where the desktop has no registry, the
// one key that the program writes, the list of programs that start with the desktop, is the autostart folder.
#pragma once

#include <QString>

class Registry
{
public:
    enum class Root { CurrentUser, LocalMachine };

    virtual ~Registry() = default;

    // Empty where there is no such value.
    virtual QString readString(Root root, const QString &key, const QString &name) = 0;
    // Both tell whether they succeeded; nothing is shown.
    virtual bool writeString(Root root, const QString &key, const QString &name, const QString &value) = 0;
    virtual bool deleteValue(Root root, const QString &key, const QString &name) = 0;
};
