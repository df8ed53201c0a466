// The messengers of Linux desktops that share one automation object on the session bus.
// A messenger that hangs costs one short wait; then it is left alone for a minute.
#pragma once

#include "platform/MessengerAPI.h"

#include <QElapsedTimer>
#include <QVariant>

class PurpleMessenger final : public MessengerAPI
{
public:
    std::optional<int> status(const QString &address) override;
    QList<Contact> contacts() override;
    void openConversation(const QString &address) override;

private:
    struct Buddy {
        int account = 0;
        int id = 0;
    };

    bool isThere();
    bool isSulking() const;
    // One question; Failure when the answer does not come in time.
    QVariant ask(const QString &method, const QVariantList &arguments);
    int number(const QString &method, const QVariantList &arguments);
    // Many questions of one kind at once.
    QList<QVariant> askAll(const QString &method, const QList<QVariantList> &arguments);

    QList<int> connectedAccounts();
    std::optional<Buddy> findBuddy(const QString &address);
    int statusOfBuddy(int buddy);

    QElapsedTimer sulking_; // since when it has not answered
};
