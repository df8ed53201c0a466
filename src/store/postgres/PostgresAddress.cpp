#include "store/postgres/PostgresAddress.h"

#include "platform/Failure.h"
#include "store/postgres/PostgresFailure.h"
#include "store/ServerStore.h"

#include <algorithm>
#include <array>
#include <memory>
#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
struct Freed {
    void operator()(PQconninfoOption *options) const { libpq::conninfoFree(options); }
};
using Options = std::unique_ptr<PQconninfoOption, Freed>;

const auto nothingToShow = u"postgresql://…"_s;

bool isSecret(const PQconninfoOption &option) { return QByteArrayView(option.dispchar) == "*"; }
bool isGiven(const PQconninfoOption &option) { return option.val != nullptr && *option.val != '\0'; }

template<class Each> void each(const Options &options, const Each &work)
{
    for (const PQconninfoOption *option = options.get(); option != nullptr && option->keyword != nullptr; ++option)
        work(*option);
}

Options parsed(const QByteArray &text)
{
    char *error = nullptr;
    Options options(libpq::conninfoParse(text.constData(), &error));
    libpq::freemem(error); // it may quote the address, and a secret with it
    return options;
}

// The library reads the service's file and the environment by itself, but only on the way to a connection. So it
// is asked for one that it refuses before it turns to the network or to the file of passwords.
Options expanded(const QByteArray &text, QString &reason)
{
    constexpr std::array keywords{"dbname", "password", "target_session_attrs", static_cast<const char *>(nullptr)};
    const std::array values{text.constData(), "-", "-", static_cast<const char *>(nullptr)};
    const PostgresConnection refused(libpq::connectStartParams(keywords.data(), values.data(), 1));
    reason = QString::fromUtf8(libpq::errorMessage(refused.get())).trimmed();
    return Options(libpq::conninfo(refused.get()));
}

QString word(const QHash<QByteArray, QByteArray> &options, const char *name)
{
    return QString::fromUtf8(options.value(name));
}

[[noreturn]] void raise(const QString &description, const QString &source, Failure::Kind kind)
{
    throw Failure(Failure::StoreError, source, description, kind);
}

bool isSocket(const QString &host) { return host.isEmpty() || host.startsWith(u'/') || host.startsWith(u'@'); }

bool isThisMachine(const QString &host)
{
    return isSocket(host) || host.compare("localhost"_L1, Qt::CaseInsensitive) == 0 ||
           QHostAddress(host).isLoopback();
}
} // namespace

bool PostgresAddress::isOne(const QString &text) { return server_store::isAddress(text); }

QString PostgresAddress::shown(const QString &text)
{
    if (!isOne(text) || !libpq::isHere()) return nothingToShow;
    const Options options = parsed(text.trimmed().toUtf8());
    if (!options) return nothingToShow;
    QHash<QByteArray, QByteArray> named;
    each(options, [&](const PQconninfoOption &option) {
        if (isGiven(option) && !isSecret(option)) named.insert(option.keyword, option.val);
    });
    QString result = u"postgresql://"_s;
    if (const QString user = word(named, "user"); !user.isEmpty()) result += user + u'@';
    const QString host = word(named, "host");
    result += host.contains(u':') ? u'[' + host + u']' : host;
    if (const QString port = word(named, "port"); !port.isEmpty()) result += u':' + port;
    result += u'/' + word(named, "dbname");
    if (const QString service = word(named, "service"); !service.isEmpty()) result += u"?service="_s + service;
    return result;
}

PostgresAddress::PostgresAddress(const QString &text) : text_(text.trimmed().toUtf8())
{
    using enum Failure::Kind;
    const Options own = parsed(text_);
    if (!isOne(text) || !own)
        raise(u"The address of the server can't be understood"_s, nothingToShow, AddressBroken);
    bool secret = false;
    each(own, [&](const PQconninfoOption &option) {
        if (!isGiven(option)) return;
        named_.insert(option.keyword, true);
        secret = secret || isSecret(option);
    });
    if (secret) raise(u"The address holds a password"_s, shown(text), PasswordInAddress);

    QString reason;
    const Options all = expanded(text_, reason);
    QHash<QByteArray, QByteArray> values;
    each(all, [&](const PQconninfoOption &option) {
        if (!isGiven(option)) return;
        values.insert(option.keyword, option.val);
        // What the service or the environment sets differs from what the library sets by itself.
        if (qstrcmp(option.val, option.compiled) != 0) named_.insert(option.keyword, true);
    });
    if (values.isEmpty()) raise(reason, shown(text), AddressBroken);
    readHosts(values);
    settings_ = values.value("options");
    passwordFile_ = word(values, "passfile");
    if (passwordFile_.isEmpty()) passwordFile_ = QDir::home().filePath(u".pgpass"_s);
}

// The lists of names and of ports are as long as one another, or one port serves all.
void PostgresAddress::readHosts(const QHash<QByteArray, QByteArray> &named)
{
    hostAddress_ = word(named, "hostaddr");
    const QStringList names = word(named, "host").split(u',');
    const QList<QByteArray> ports = named.value("port").split(',');
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString &name = names[i];
        const bool lookUp = hostAddress_.isEmpty() && !isSocket(name) && QHostAddress(name).isNull();
        hosts_.push_back({name, ports.value(i, ports.first()), lookUp});
    }
}

bool PostgresAddress::isHere() const
{
    if (!hostAddress_.isEmpty()) {
        const QStringList addresses = hostAddress_.split(u',');
        return std::all_of(addresses.begin(), addresses.end(), isThisMachine);
    }
    return std::all_of(hosts_.begin(), hosts_.end(), [](const Host &host) { return isThisMachine(host.name); });
}

QStringList PostgresAddress::namesToLookUp() const
{
    QStringList names;
    for (const Host &host : hosts_)
        if (host.lookUp && !names.contains(host.name)) names << host.name;
    return names;
}

std::vector<PostgresOption> PostgresAddress::options(const QHash<QString, QList<QHostAddress>> &found) const
{
    std::vector<PostgresOption> options{{"dbname", text_}};
    const auto byDefault = [&](const char *name, const char *value) {
        if (!named_.value(name)) options.push_back({name, value});
    };
    if (!isHere()) byDefault("sslmode", "verify-full");
    byDefault("connect_timeout", "4");
    byDefault("tcp_user_timeout", "8000");
    byDefault("keepalives_idle", "20");
    byDefault("keepalives_interval", "5");
    byDefault("keepalives_count", "3");
    byDefault("gssencmode", "disable");
    byDefault("application_name", "morvex");
    options.push_back({"client_encoding", "UTF8"});
    if (namesToLookUp().isEmpty()) return options;

    // Each address of a name stands beside it: the certificate is asked for the name. One without any is left out,
    // or the library would look it up once more, and wait for that.
    QByteArrayList names;
    QByteArrayList addresses;
    QByteArrayList ports;
    for (const Host &host : hosts_) {
        const QList<QHostAddress> own = host.lookUp ? found.value(host.name) : QList{QHostAddress(host.name)};
        for (const QHostAddress &address : own) {
            names << host.name.toUtf8();
            addresses << address.toString().toUtf8();
            ports << host.port;
        }
    }
    if (names.isEmpty()) return options;
    options.push_back({"host", names.join(',')});
    options.push_back({"hostaddr", addresses.join(',')});
    options.push_back({"port", ports.join(',')});
    return options;
}
