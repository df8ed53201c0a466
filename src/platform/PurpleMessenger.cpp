#include "platform/PurpleMessenger.h"

#include "platform/Failure.h"
#include "platform/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace
{
constexpr int patience = 250;  // ms for one answer
constexpr qint64 sulk = 60000; // ms for which a messenger that did not answer is left alone

QDBusMessage question(const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(u"im.pidgin.purple.PurpleService"_s,
                                                          u"/im/pidgin/purple/PurpleObject"_s,
                                                          u"im.pidgin.purple.PurpleInterface"_s, method);
    message.setAutoStartService(false); // asking must not start it
    message.setArguments(arguments);
    return message;
}

QList<int> numbersOf(const QVariant &answer)
{
    if (answer.canConvert<QDBusArgument>()) return qdbus_cast<QList<int>>(answer);
    return answer.value<QList<int>>();
}

// The place of a device stands behind a slash and is no part of the address.
QString withoutResource(const QString &address) { return address.section(u'/', 0, 0); }

int codeOf(int primitive, bool idle)
{
    switch (primitive) {
    case 1:
    case 4:
        return MessengerAPI::Offline;
    case 2:
    case 7:
        return idle ? MessengerAPI::Idle : MessengerAPI::Online;
    case 3:
        return MessengerAPI::Busy;
    case 5:
    case 6:
        return MessengerAPI::Away;
    default:
        return MessengerAPI::Unknown;
    }
}

template<class Value> QList<QVariantList> eachAlone(const QList<Value> &values)
{
    QList<QVariantList> arguments;
    for (const auto &value : values)
        arguments << QVariantList{value};
    return arguments;
}
} // namespace

bool PurpleMessenger::isSulking() const { return sulking_.isValid() && sulking_.elapsed() < sulk; }

bool PurpleMessenger::isThere()
{
    if (!sessionBusIsThere() || isSulking()) return false;
    QDBusMessage owner = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                        u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    owner << u"im.pidgin.purple.PurpleService"_s;
    const QDBusMessage answer = QDBusConnection::sessionBus().call(owner, QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ReplyMessage) sulking_.start();
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toBool();
}

QVariant PurpleMessenger::ask(const QString &method, const QVariantList &arguments)
{
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(question(method, arguments), QDBus::Block, patience);
    if (answer.type() == QDBusMessage::ReplyMessage) return answer.arguments().value(0);
    sulking_.start();
    throw Failure(Failure::StoreError, method, answer.errorMessage());
}

int PurpleMessenger::number(const QString &method, const QVariantList &arguments)
{
    return ask(method, arguments).toInt();
}

QList<QVariant> PurpleMessenger::askAll(const QString &method, const QList<QVariantList> &arguments)
{
    QList<QDBusPendingCall> calls;
    for (const QVariantList &one : arguments)
        calls << QDBusConnection::sessionBus().asyncCall(question(method, one),
                                                         patience + static_cast<int>(arguments.size()));
    QList<QVariant> answers;
    for (QDBusPendingCall &call : calls) {
        call.waitForFinished();
        if (call.isError()) {
            sulking_.start();
            throw Failure(Failure::StoreError, method, call.error().message());
        }
        answers << call.reply().arguments().value(0);
    }
    return answers;
}

QList<int> PurpleMessenger::connectedAccounts()
{
    QList<int> connected;
    for (const int account : numbersOf(ask(u"PurpleAccountsGetAllActive"_s, {})))
        if (number(u"PurpleAccountIsConnected"_s, {account}) != 0) connected << account;
    return connected;
}

std::optional<PurpleMessenger::Buddy> PurpleMessenger::findBuddy(const QString &address)
{
    for (const int account : connectedAccounts())
        if (const int buddy = number(u"PurpleFindBuddy"_s, {account, withoutResource(address)}))
            return Buddy{account, buddy};
    return std::nullopt;
}

int PurpleMessenger::statusOfBuddy(int buddy)
{
    const int presence = number(u"PurpleBuddyGetPresence"_s, {buddy});
    const int status = number(u"PurplePresenceGetActiveStatus"_s, {presence});
    const int type = number(u"PurpleStatusGetType"_s, {status});
    const int primitive = number(u"PurpleStatusTypeGetPrimitive"_s, {type});
    return codeOf(primitive, number(u"PurplePresenceIsIdle"_s, {presence}) != 0);
}

std::optional<int> PurpleMessenger::status(const QString &address)
{
    std::optional<int> status;
    skipFailure([&] {
        if (address.isEmpty() || !isThere()) return;
        if (const auto buddy = findBuddy(address)) status = statusOfBuddy(buddy->id);
    });
    return status;
}

// Four rounds of questions, each asked for all contacts before the first answer is awaited.
QList<MessengerAPI::Contact> PurpleMessenger::contacts()
{
    QList<Contact> contacts;
    skipFailure([&] {
        if (!isThere()) return;
        QList<int> buddies;
        for (const int account : connectedAccounts())
            buddies << numbersOf(ask(u"PurpleFindBuddies"_s, {account, QString()}));
        const auto names = askAll(u"PurpleBuddyGetName"_s, eachAlone(buddies));
        const auto presences = askAll(u"PurpleBuddyGetPresence"_s, eachAlone(buddies));
        const auto idle = askAll(u"PurplePresenceIsIdle"_s, eachAlone(presences));
        const auto states = askAll(u"PurplePresenceGetActiveStatus"_s, eachAlone(presences));
        const auto types = askAll(u"PurpleStatusGetType"_s, eachAlone(states));
        const auto primitives = askAll(u"PurpleStatusTypeGetPrimitive"_s, eachAlone(types));
        for (qsizetype i = 0; i < buddies.size(); ++i)
            contacts << Contact{withoutResource(names[i].toString()),
                                codeOf(primitives[i].toInt(), idle[i].toInt() != 0)};
    });
    return contacts;
}

void PurpleMessenger::openConversation(const QString &address)
{
    skipFailure([&] {
        if (!isThere()) return;
        const auto buddy = findBuddy(address);
        if (!buddy) return;
        constexpr int instantMessage = 1;
        const int conversation =
            number(u"PurpleConversationNew"_s, {instantMessage, buddy->account, withoutResource(address)});
        QDBusConnection::sessionBus().send(question(u"PurpleConversationPresent"_s, {conversation}));
    });
}
