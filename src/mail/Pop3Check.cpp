#include "mail/Pop3Check.h"

#include <algorithm>
#include <QCryptographicHash>
#include <QHostInfo>
#include <QSslError>

namespace
{
constexpr qint64 longestLine = 8192; // bytes, with its end
constexpr qint64 mostUnread = 65536; // a server that floods waits until this much has been read
constexpr qsizetype mostUids = 100000;
constexpr int mostCapabilities = 200;

bool isPositive(const QByteArray &answer) { return answer.startsWith("+OK"); }

// A line break within a name or password would be a command of its own.
bool fitsOneLine(const QByteArray &text) { return !text.contains('\r') && !text.contains('\n'); }
} // namespace

Pop3Check::Pop3Check(MailServer server, const QString &user, const QString &password, Trust trust,
                     const Limits &limits, QObject *parent)
    : QObject(parent),
      server_(std::move(server)),
      limits_(limits),
      user_(user.toUtf8()),
      password_(password.toUtf8())
{
    result_.trust = std::move(trust);
    socket_.setReadBufferSize(mostUnread);
    connect(&stepTimer_, &QTimer::timeout, this, [this] {
        if (step_ == Step::Connecting && !addresses_.isEmpty())
            connectToNextAddress();
        else
            fail(MailError::TimedOut);
    });
    connect(&wholeTimer_, &QTimer::timeout, this, [this] { fail(MailError::TimedOut); });
    connect(&socket_, &QAbstractSocket::connected, this, [this] {
        if (server_.tls) return beginHandshake();
        awaitGreeting();
    });
    connect(&socket_, &QSslSocket::encrypted, this, &Pop3Check::encrypted);
    connect(&socket_, &QSslSocket::sslErrors, this, &Pop3Check::judgeCertificate);
    connect(&socket_, &QAbstractSocket::errorOccurred, this, &Pop3Check::socketFailed);
    connect(&socket_, &QIODevice::readyRead, this, &Pop3Check::readLines);
}

Pop3Check::~Pop3Check()
{
    socket_.disconnect(this);
    letGo();
}

void Pop3Check::start()
{
    wholeTimer_.start(limits_.check);
    stepTimer_.start(limits_.answer);
    if (!fitsOneLine(user_) || !fitsOneLine(password_)) {
        QTimer::singleShot(0, this, [this] { fail(MailError::Refused); });
        return;
    }
    lookup_ = QHostInfo::lookupHost(server_.host, this, [this](const QHostInfo &info) {
        lookup_ = -1;
        addresses_ = info.addresses();
        std::stable_partition(addresses_.begin(), addresses_.end(), [](const QHostAddress &address) {
            return address.protocol() == QAbstractSocket::IPv4Protocol;
        });
        if (addresses_.isEmpty()) return fail(MailError::NotFound);
        connectToNextAddress();
    });
}

void Pop3Check::connectToNextAddress()
{
    step_ = Step::Connecting;
    socket_.abort();
    stepTimer_.start(limits_.address);
    socket_.setPeerVerifyName(server_.host);
    socket_.connectToHost(addresses_.takeFirst(), server_.port);
}

void Pop3Check::awaitGreeting()
{
    step_ = Step::Greeting;
    stepTimer_.start(limits_.answer);
}

void Pop3Check::socketFailed()
{
    switch (step_) {
    case Step::Connecting:
        if (!addresses_.isEmpty()) return connectToNextAddress();
        return fail(MailError::Unreachable);
    case Step::Handshake:
        return fail(MailError::Certificate);
    case Step::Quit:
        return finish(); // it owes us nothing any more
    default:
        return fail(MailError::Closed);
    }
}

void Pop3Check::beginHandshake()
{
    step_ = Step::Handshake;
    stepTimer_.start(limits_.answer);
    socket_.startClientEncryption();
}

// From the first byte on, only a certificate that the system trusts will do. Where encryption was offered on
// the way, an unknown one is trusted at first sight, and must be the same ever after.
void Pop3Check::judgeCertificate()
{
    if (server_.tls) return fail(MailError::Certificate);
    const QByteArray fingerprint = socket_.peerCertificate().digest(QCryptographicHash::Sha256).toHex();
    Trust &trust = result_.trust;
    const bool known = trust.encryptedBefore ? trust.fingerprint == fingerprint : true;
    if (!known) return fail(MailError::Certificate);
    trust.fingerprint = fingerprint;
    socket_.ignoreSslErrors();
}

void Pop3Check::encrypted()
{
    result_.trust.encryptedBefore = true;
    if (server_.tls) return awaitGreeting();
    result_.loginDelay = 0; // what was promised in the clear counts for nothing
    ask(Step::Capa, "CAPA");
}

void Pop3Check::readLines()
{
    while (step_ != Step::Done && step_ != Step::Handshake && socket_.canReadLine()) {
        const QByteArray text = socket_.readLine(longestLine + 1);
        if (!text.endsWith('\n')) return fail(MailError::Garbled);
        line(text.trimmed());
    }
    if (step_ != Step::Done && !socket_.canReadLine() && socket_.bytesAvailable() >= longestLine)
        fail(MailError::Garbled);
}

void Pop3Check::line(const QByteArray &text)
{
    switch (step_) {
    case Step::Greeting:
        return isPositive(text) ? ask(Step::Capa, "CAPA") : refuse(text, MailError::Unreachable);
    case Step::Capa:
        return capability(text);
    case Step::Stls:
        if (!isPositive(text)) return fail(MailError::Garbled);
        // Whatever came with the answer was put there by somebody who cannot speak encrypted.
        if (socket_.bytesAvailable() > 0) return fail(MailError::Garbled);
        return beginHandshake();
    case Step::User:
        return isPositive(text) ? ask(Step::Pass, "PASS " + password_) : refuse(text, MailError::Refused);
    case Step::Pass:
        return isPositive(text) ? ask(Step::Stat, "STAT") : refuse(text, MailError::Refused);
    case Step::Stat:
        return statistics(text);
    case Step::Uidl:
        return name(text);
    case Step::Quit:
        return finish();
    default:
        return;
    }
}

void Pop3Check::capability(const QByteArray &text)
{
    if (!inList_) {
        inList_ = isPositive(text);
        return inList_ ? void() : afterCapabilities(); // an old server knows no CAPA
    }
    if (text == ".") return afterCapabilities();
    if (++capabilities_ > mostCapabilities) return fail(MailError::Garbled);
    const QByteArray upper = text.toUpper();
    if (upper == "STLS") offersStls_ = true;
    if (upper.startsWith("LOGIN-DELAY "))
        result_.loginDelay = std::clamp(upper.split(' ').value(1).toInt(), 0, 86400);
}

void Pop3Check::afterCapabilities()
{
    if (!socket_.isEncrypted() && offersStls_) return ask(Step::Stls, "STLS");
    if (!socket_.isEncrypted() && result_.trust.encryptedBefore) return fail(MailError::NotEncrypted);
    ask(Step::User, "USER " + user_);
}

void Pop3Check::statistics(const QByteArray &text)
{
    bool number = false;
    result_.messages = text.split(' ').value(1).toInt(&number);
    if (!isPositive(text) || !number || result_.messages < 0) return fail(MailError::Garbled);
    if (result_.messages == 0) {
        result_.hasUids = true;
        return ask(Step::Quit, "QUIT");
    }
    ask(Step::Uidl, "UIDL");
}

void Pop3Check::name(const QByteArray &text)
{
    if (!inList_) {
        inList_ = isPositive(text);
        result_.hasUids = inList_;
        return inList_ ? void() : ask(Step::Quit, "QUIT");
    }
    if (text == ".") return ask(Step::Quit, "QUIT");
    const qsizetype blank = text.indexOf(' ');
    if (blank < 1 || result_.uids.size() >= std::min<qsizetype>(result_.messages, mostUids))
        return fail(MailError::Garbled);
    result_.uids << QString::fromUtf8(text.mid(blank + 1).trimmed());
    stepTimer_.start(limits_.answer);
}

void Pop3Check::ask(Step step, const QByteArray &command)
{
    step_ = step;
    inList_ = false;
    stepTimer_.start(limits_.answer);
    socket_.write(command + "\r\n");
}

// A refusal is read for its code alone, and never shown: it may repeat the name or the password.
void Pop3Check::refuse(const QByteArray &answer, MailError meaning)
{
    const QByteArray upper = answer.toUpper();
    const bool later =
        upper.contains("[IN-USE]") || upper.contains("[SYS/TEMP]") || upper.contains("[LOGIN-DELAY]");
    if (!upper.startsWith("-ERR")) return fail(MailError::Garbled);
    fail(later ? MailError::Busy : meaning);
}

void Pop3Check::fail(MailError error)
{
    if (step_ == Step::Done) return;
    letGo();
    Q_EMIT failed(error);
}

void Pop3Check::finish()
{
    if (step_ == Step::Done) return;
    letGo();
    Q_EMIT succeeded(result_);
}

// A look-up of an address that answers later would begin the check anew.
void Pop3Check::letGo()
{
    step_ = Step::Done;
    if (lookup_ >= 0) QHostInfo::abortHostLookup(lookup_);
    stepTimer_.stop();
    wholeTimer_.stop();
    socket_.abort();
}
