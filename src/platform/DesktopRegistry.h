// The registry on a desktop that has none: the autostart folder stands for the key of programs that start
// with the desktop. Every other key reads as empty and refuses to be written.
#pragma once

#include "platform/Registry.h"

class DesktopRegistry final : public Registry
{
public:
    // The user's own folder of programs that start with the desktop.
    DesktopRegistry();
    explicit DesktopRegistry(QString autostartFolder) : folder_(std::move(autostartFolder)) {}

    QString readString(Root root, const QString &key, const QString &name) override;
    bool writeString(Root root, const QString &key, const QString &name, const QString &value) override;
    bool deleteValue(Root root, const QString &key, const QString &name) override;

private:
    QString entry(const QString &name) const;

    QString folder_;
};
