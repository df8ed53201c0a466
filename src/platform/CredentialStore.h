// The store of secrets of Windows, which the person sees among the credentials of the control panel. It is
// open as long as the person is logged in.
#pragma once

#include "platform/SecretStore.h"

class CredentialStore final : public SecretStore
{
public:
    bool isThere() override { return true; }
    std::optional<QString> read(const QString &key) override;
    bool write(const QString &key, const QString &label, const QString &secret) override;
    void remove(const QString &key) override;
};
