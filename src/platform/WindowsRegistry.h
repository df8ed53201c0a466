// The registry of a Windows desktop. A value's name has no slash in it: the toolkit would take what stands
// before it for a key of its own.
#pragma once

#include "platform/Registry.h"

#include <QSettings>

class WindowsRegistry final : public Registry
{
public:
    // Where the two roots lie, and how values are kept there.
    struct Place {
        QString currentUser = QStringLiteral("HKEY_CURRENT_USER");
        QString localMachine = QStringLiteral("HKEY_LOCAL_MACHINE");
        QSettings::Format format = QSettings::NativeFormat;
    };

    WindowsRegistry() = default;
    explicit WindowsRegistry(Place place) : place_(std::move(place)) {}

    QString readString(Root root, const QString &key, const QString &name) override;
    bool writeString(Root root, const QString &key, const QString &name, const QString &value) override;
    bool deleteValue(Root root, const QString &key, const QString &name) override;

private:
    QString path(Root root, const QString &key) const;

    Place place_;
};
