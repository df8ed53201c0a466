// The desktop's messenger, as far as the program needs it: presence by address, the list of its contacts, and
// opening a conversation. Silent and quick where there is no messenger.
#pragma once

#include <optional>
#include <QList>
#include <QString>

class MessengerAPI
{
public:
    // Presence codes.
    enum Status { Unknown = 0, Offline = 1, Online = 2, Busy = 10, Idle = 18, Away = 34 };

    struct Contact {
        QString address;
        int status = Unknown;
    };

    virtual ~MessengerAPI() = default;

    // Nothing for an address that the messenger does not know, and where there is no messenger.
    virtual std::optional<int> status(const QString &address) = 0;
    virtual QList<Contact> contacts() = 0;
    // Does not wait, and tells nothing.
    virtual void openConversation(const QString &address) = 0;
};
