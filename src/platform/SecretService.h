// The store of secrets of Linux desktops, which several programs offer under one name on the session's bus.
// Its answers are waited for, a few seconds at most.
#pragma once

#include "platform/SecretStore.h"

class SecretService final : public SecretStore
{
public:
    bool isThere() override;
    std::optional<QString> read(const QString &key) override;
    bool write(const QString &key, const QString &label, const QString &secret) override;
    void remove(const QString &key) override;
};
