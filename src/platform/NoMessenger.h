// A desktop without a messenger: nobody is known, and nobody can be talked to.
#pragma once

#include "platform/MessengerAPI.h"

class NoMessenger final : public MessengerAPI
{
public:
    std::optional<int> status(const QString &) override { return std::nullopt; }
    QList<Contact> contacts() override { return {}; }
    void openConversation(const QString &) override {}
};
