// Where the desktop keeps passwords: locked away with the person's own, or not at all.
#pragma once

#include <optional>
#include <QString>

class SecretStore
{
public:
    virtual ~SecretStore() = default;

    // Whether there is one that takes secrets. Asked anew each time: a desktop may start it late.
    virtual bool isThere() = 0;

    // Under a key of the caller's, unique in this program. Nothing where there is no such secret, and where
    // the store is locked: it then asks the person by itself to open it, and the next read finds it open.
    virtual std::optional<QString> read(const QString &key) = 0;

    // In the place of an earlier one. The label is what the person reads in the desktop's list of secrets.
    // False where the store did not take it.
    virtual bool write(const QString &key, const QString &label, const QString &secret) = 0;

    virtual void remove(const QString &key) = 0; // none is no failure
};
