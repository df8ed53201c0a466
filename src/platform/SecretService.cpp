#include "platform/SecretService.h"

#include "platform/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

// As it travels over the bus. "plain": the bus is this session's own, and nobody else hears it.
struct BusSecret {
    QDBusObjectPath session;
    QByteArray parameters;
    QByteArray value;
    QString type;
};
Q_DECLARE_METATYPE(BusSecret)

static QDBusArgument &operator<<(QDBusArgument &argument, const BusSecret &secret)
{
    argument.beginStructure();
    argument << secret.session << secret.parameters << secret.value << secret.type;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, BusSecret &secret)
{
    argument.beginStructure();
    argument >> secret.session >> secret.parameters >> secret.value >> secret.type;
    argument.endStructure();
    return argument;
}

namespace
{
using Attributes = QMap<QString, QString>;
using Paths = QList<QDBusObjectPath>;

const auto serviceName = u"org.freedesktop.secrets"_s;
const auto servicePath = u"/org/freedesktop/secrets"_s;
const auto serviceInterface = u"org.freedesktop.Secret.Service"_s;
const auto itemInterface = u"org.freedesktop.Secret.Item"_s;
constexpr int patience = 3000; // milliseconds

void registerTypes()
{
    static const bool once = [] {
        qDBusRegisterMetaType<BusSecret>();
        qDBusRegisterMetaType<Attributes>();
        return true;
    }();
    Q_UNUSED(once)
}

QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments)
{
    registerTypes();
    QDBusMessage question = QDBusMessage::createMethodCall(serviceName, path, interface, method);
    question.setArguments(arguments);
    return QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
}

QDBusMessage ask(const QString &method, const QVariantList &arguments)
{
    return call(servicePath, serviceInterface, method, arguments);
}

bool isAnswer(const QDBusMessage &message, qsizetype arguments)
{
    return message.type() == QDBusMessage::ReplyMessage && message.arguments().size() >= arguments;
}

QString pathIn(const QDBusMessage &message, qsizetype place)
{
    return qvariant_cast<QDBusObjectPath>(message.arguments().at(place)).path();
}

bool isNone(const QString &path) { return path.isEmpty() || path == u"/"_s; }

// The person answers in a window of the store's own, whenever that is.
void prompt(const QString &path)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(serviceName, path, u"org.freedesktop.Secret.Prompt"_s, u"Prompt"_s);
    question << QString();
    QDBusConnection::sessionBus().asyncCall(question);
}

Attributes attributesOf(const QString &key) { return {{u"application"_s, u"morvex"_s}, {u"key"_s, key}}; }

// Where new secrets go; empty for nowhere.
QString collection()
{
    if (!sessionBusIsThere()) return {};
    const QDBusMessage answer = ask(u"ReadAlias"_s, {u"default"_s});
    const QString path = isAnswer(answer, 1) ? pathIn(answer, 0) : QString();
    return isNone(path) ? QString() : path;
}

QString session()
{
    const QDBusMessage answer =
        ask(u"OpenSession"_s, {u"plain"_s, QVariant::fromValue(QDBusVariant(QString()))});
    return isAnswer(answer, 2) ? pathIn(answer, 1) : QString();
}

// False where the person has to be asked, which has begun.
bool unlock(const Paths &paths)
{
    const QDBusMessage answer = ask(u"Unlock"_s, {QVariant::fromValue(paths)});
    if (!isAnswer(answer, 2)) return false;
    const QString question = pathIn(answer, 1);
    if (isNone(question)) return true;
    prompt(question);
    return false;
}

struct Found {
    Paths open;
    Paths locked;
};

Found find(const QString &key)
{
    if (!sessionBusIsThere()) return {};
    const QDBusMessage answer = ask(u"SearchItems"_s, {QVariant::fromValue(attributesOf(key))});
    if (!isAnswer(answer, 2)) return {};
    return {qdbus_cast<Paths>(answer.arguments().at(0)), qdbus_cast<Paths>(answer.arguments().at(1))};
}
} // namespace

bool SecretService::isThere() { return !collection().isEmpty(); }

std::optional<QString> SecretService::read(const QString &key)
{
    Found found = find(key);
    if (found.open.isEmpty() && !found.locked.isEmpty() && unlock(found.locked)) found.open = found.locked;
    if (found.open.isEmpty()) return {};
    const QDBusMessage answer = call(found.open.constFirst().path(), itemInterface, u"GetSecret"_s,
                                     {QVariant::fromValue(QDBusObjectPath(session()))});
    if (!isAnswer(answer, 1)) return {};
    return QString::fromUtf8(qdbus_cast<BusSecret>(answer.arguments().constFirst()).value);
}

bool SecretService::write(const QString &key, const QString &label, const QString &secret)
{
    const QString where = collection();
    const QString opened = where.isEmpty() ? QString() : session();
    if (isNone(opened) || !unlock({QDBusObjectPath(where)})) return false;
    const QVariantMap properties{
        {u"org.freedesktop.Secret.Item.Label"_s, label},
        {u"org.freedesktop.Secret.Item.Attributes"_s, QVariant::fromValue(attributesOf(key))}};
    const BusSecret value{QDBusObjectPath(opened), {}, secret.toUtf8(), u"text/plain; charset=utf8"_s};
    const QDBusMessage answer = call(where, u"org.freedesktop.Secret.Collection"_s, u"CreateItem"_s,
                                     {QVariant::fromValue(properties), QVariant::fromValue(value), true});
    return isAnswer(answer, 2) && !isNone(pathIn(answer, 0));
}

void SecretService::remove(const QString &key)
{
    const Found found = find(key);
    for (const QDBusObjectPath &item : found.open + found.locked) {
        const QDBusMessage answer = call(item.path(), itemInterface, u"Delete"_s, {});
        if (isAnswer(answer, 1) && !isNone(pathIn(answer, 0))) prompt(pathIn(answer, 0));
    }
}
