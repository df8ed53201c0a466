#include "store/postgres/PostgresOpening.h"

#include "store/postgres/SocketWait.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
void saysNothing(void *, const char *) {}

[[noreturn]] void raise(const QString &description, Failure::Kind kind)
{
    throw Failure(Failure::StoreError, u"PostgresStore"_s, description, kind);
}

// The library looks away from a file of passwords that others may read.
bool isOpenToOthers(const QString &passwordFile)
{
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    return (QFile::permissions(passwordFile) & others).toInt() != 0;
}

// Of a connection that was told to name the code; empty where the server itself said nothing.
QByteArray stateIn(const QString &message)
{
    // Every code has a digit, which the word for its gravity has not.
    static const QRegularExpression shape(u":\\s+(?=[A-Z]*[0-9])([0-9A-Z]{5}):\\s"_s);
    return shape.match(message).captured(1).toLatin1();
}

// Without the places in the server's own source.
QString readable(const QString &message)
{
    static const QRegularExpression place(u"\\n[^\\n]*:\\s+\\w+, \\w+\\.c:[0-9]+(?=\\n|$)"_s);
    return QString(message).remove(place).trimmed();
}
} // namespace

PostgresOpening::PostgresOpening(PostgresAddress address, QStringList settings)
    : address_(std::move(address)),
      settings_(std::move(settings))
{
    if (const QStringList names = address_.namesToLookUp(); !names.isEmpty())
        lookup_.emplace(names);
    else
        start({});
}

int PostgresOpening::socket() const { return lookup_ ? lookup_->socket() : libpq::socket(connection_.get()); }

void PostgresOpening::start(const QHash<QString, QList<QHostAddress>> &found)
{
    std::vector<PostgresOption> options = address_.options(found);
    QByteArray settings = address_.settings();
    for (const QString &setting : settings_)
        settings += " -c " + setting.toUtf8();
    if (!settings.isEmpty()) options.push_back({"options", settings});
    std::vector<const char *> names;
    std::vector<const char *> values;
    for (const PostgresOption &option : options) {
        names.push_back(option.name.constData());
        values.push_back(option.value.constData());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    connection_.reset(libpq::connectStartParams(names.data(), values.data(), 1));
    libpq::setNoticeProcessor(connection_.get(), saysNothing, nullptr);
    libpq::setErrorVerbosity(connection_.get(), PQERRORS_VERBOSE);
    stage_ = libpq::status(connection_.get());
    if (stage_ == CONNECTION_BAD) fail();
    waits_ = Waits::ToWrite;
}

void PostgresOpening::step()
{
    if (lookup_) {
        if (!lookup_->done()) return;
        const auto found = lookup_->found();
        if (const QString name = unknownName(found); !name.isEmpty())
            raise(u"Nobody knows a host named %1"_s.arg(name), Failure::Kind::ServerUnknown);
        lookup_.reset();
        return start(found);
    }
    if (const ConnStatusType stage = libpq::status(connection_.get()); stage != CONNECTION_BAD) stage_ = stage;
    switch (libpq::connectPoll(connection_.get())) {
    case PGRES_POLLING_READING:
        waits_ = Waits::ToRead;
        return;
    case PGRES_POLLING_WRITING:
        waits_ = Waits::ToWrite;
        return;
    case PGRES_POLLING_OK:
        waits_ = Waits::NoMore;
        libpq::setErrorVerbosity(connection_.get(), PQERRORS_DEFAULT);
        return;
    default:
        fail();
    }
}

PostgresConnection PostgresOpening::taken() { return std::move(connection_); }

// All names must be unknown: one server of several is enough.
QString PostgresOpening::unknownName(const QHash<QString, QList<QHostAddress>> &found) const
{
    QString unknown;
    for (const QString &name : address_.namesToLookUp()) {
        if (!found.value(name).isEmpty()) return {};
        unknown = name;
    }
    return unknown;
}

// What the server said is told by its code. Where it said nothing, by how far the library had come.
void PostgresOpening::fail() const
{
    const QString message = QString::fromUtf8(libpq::errorMessage(connection_.get()));
    const QString text = readable(message);
    using enum Failure::Kind;
    if (libpq::connectionNeedsPassword(connection_.get()) != 0)
        raise(text, isOpenToOthers(address_.passwordFile()) ? ServerPasswordFile : ServerNoPassword);
    if (const QByteArray state = stateIn(message); !state.isEmpty()) raise(text, kindOfState(state.constData()));
    if (stage_ == CONNECTION_SSL_STARTUP) raise(text, ServerCertificate);
    if (stage_ == CONNECTION_NEEDED || stage_ == CONNECTION_BAD) raise(text, AddressBroken);
    raise(text, ServerRefused);
}

PostgresConnection openNow(const PostgresAddress &address, const QStringList &settings, const Deadline &deadline)
{
    PostgresOpening opening(address, settings);
    bool asked = false; // the server itself, and not who knows its name
    while (opening.waits() != PostgresOpening::Waits::NoMore) {
        const bool toWrite = opening.waits() == PostgresOpening::Waits::ToWrite;
        if (!socketReady(opening.socket(), !toWrite, toWrite, deadline))
            raise(u"The server does not answer"_s, Failure::Kind::ServerLost);
        asked = asked || toWrite;
        if (asked && !toWrite) deadline.heard();
        opening.step();
    }
    return opening.taken();
}
