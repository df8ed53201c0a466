#include "carddav/DavExchange.h"

#include "carddav/DavStatus.h"
#include "carddav/Href.h"

#include <QNetworkInterface>
#include <QSslError>

namespace
{
constexpr int mostRedirects = 10;
constexpr qint64 mostOfError = qint64{64} << 10; // bytes that are kept of what a server says to an error

bool isRedirect(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool isOffline()
{
    for (const QNetworkInterface &one : QNetworkInterface::allInterfaces()) {
        const auto flags = one.flags();
        if (flags.testFlag(QNetworkInterface::IsUp) && flags.testFlag(QNetworkInterface::IsRunning) &&
            !flags.testFlag(QNetworkInterface::IsLoopBack) && !one.addressEntries().isEmpty())
            return false;
    }
    return true;
}

// The toolkit writes name and password in Latin-1, which lacks most of the world's letters, and servers read
// UTF-8: each byte of it goes as a letter of its own.
QString asToolkitSpells(const QString &text) { return QString::fromLatin1(text.toUtf8()); }

QNetworkRequest networkRequest(const DavRequest &request, const QUrl &url)
{
    QNetworkRequest result(url);
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    result.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    result.setRawHeader("User-Agent", "Morvex");
    result.setRawHeader("Accept-Encoding", "identity"); // so a small answer cannot unfold into a large one
    if (!request.bodyType.isEmpty()) result.setRawHeader("Content-Type", request.bodyType);
    for (const auto &[name, value] : request.headers)
        result.setRawHeader(name, value);
    return result;
}
} // namespace

DavExchange::DavExchange(QNetworkAccessManager &manager, DavRequest request, RemoteAccount account,
                         QUrl server, const RemoteLimits &limits, QObject *parent)
    : QObject(parent),
      manager_(manager),
      request_(std::move(request)),
      account_(std::move(account)),
      server_(std::move(server)),
      limits_(limits),
      multistatus_(limits.card)
{
    still_.setInterval(limits_.stillness);
    connect(&still_, &QTimer::timeout, this,
            [this] { fail(RemoteError::Kind::TimedOut, QStringLiteral("nothing moved any more")); });
    connect(&whole_, &QTimer::timeout, this,
            [this] { fail(RemoteError::Kind::TimedOut, QStringLiteral("the request took too long")); });
}

DavExchange::~DavExchange() { drop(); }

void DavExchange::start()
{
    whole_.start(limits_.request);
    ask(request_.url);
}

void DavExchange::ask(const QUrl &url)
{
    drop();
    answer_.url = url;
    asked_ = 0;
    received_ = 0;
    still_.start();
    const QNetworkRequest request = networkRequest(request_, url);
    if (request_.verb == "GET")
        reply_ = manager_.get(request);
    else if (request_.verb == "DELETE")
        reply_ = manager_.deleteResource(request);
    else
        reply_ = manager_.sendCustomRequest(request, request_.verb, request_.body);
    connect(reply_, &QNetworkReply::sslErrors, this, [this](const QList<QSslError> &errors) {
        for (const QSslError &error : errors)
            certificateErrors_ +=
                (certificateErrors_.isEmpty() ? QString() : QStringLiteral("; ")) + error.errorString();
    });
    connect(reply_, &QNetworkReply::uploadProgress, this, [this] { still_.start(); });
    connect(reply_, &QNetworkReply::metaDataChanged, this, &DavExchange::headersCame);
    connect(reply_, &QIODevice::readyRead, this, &DavExchange::bodyCame);
    connect(reply_, &QNetworkReply::finished, this, &DavExchange::replyFinished);
}

int DavExchange::status() const
{
    return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// The password is for the one server that it was given for. Asked a second time, it was wrong.
void DavExchange::authenticate(QAuthenticator &authenticator)
{
    if (++asked_ > 1 || !isSameServer(server_, answer_.url)) return;
    if (account_.user.isEmpty() && account_.password.isEmpty()) return;
    authenticator.setUser(asToolkitSpells(account_.user));
    authenticator.setPassword(asToolkitSpells(account_.password));
}

void DavExchange::headersCame()
{
    still_.start();
    const qint64 announced = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (status() < 300 && announced > (request_.isCard ? limits_.card : limits_.listing))
        fail(RemoteError::Kind::TooBig, QStringLiteral("%1 bytes announced").arg(announced));
}

void DavExchange::bodyCame()
{
    still_.start();
    const QByteArray piece = reply_->readAll();
    received_ += piece.size();
    if (received_ > (request_.isCard ? limits_.card : limits_.listing))
        return fail(RemoteError::Kind::TooBig, QStringLiteral("more than %1 bytes").arg(received_));
    if (status() == 207) {
        if (!multistatus_.add(piece)) fail(RemoteError::Kind::Malformed, multistatus_.why());
    } else if (status() < 300 || answer_.body.size() < mostOfError) {
        answer_.body += piece;
    }
}

void DavExchange::replyFinished()
{
    if (reply_->bytesAvailable() > 0) bodyCame();
    if (isEnded_) return;
    answer_.status = status();
    answer_.error = errorOfReply();
    if (!answer_.error && isRedirect(answer_.status)) return moved();
    complete();
}

// An error in the class of those that a status makes tells nothing beyond it.
RemoteError DavExchange::errorOfReply() const
{
    const QNetworkReply::NetworkError error = reply_->error();
    const bool ofStatus =
        error >= QNetworkReply::ContentAccessDenied && error != QNetworkReply::ProtocolFailure;
    if (error != QNetworkReply::NoError && !(ofStatus && answer_.status > 0)) return errorOfWay();
    const QVariant announced = reply_->header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid() && answer_.status != 204 && announced.toLongLong() > received_)
        return {RemoteError::Kind::Interrupted, answer_.status, QStringLiteral("the answer was cut off")};
    if (answer_.status == 401 && !isSameServer(server_, answer_.url))
        return {RemoteError::Kind::Elsewhere, 401, answer_.url.toString()};
    return errorOfStatus(answer_.status, answer_.body, request_.verb);
}

RemoteError DavExchange::errorOfWay() const
{
    const auto because = [this](RemoteError::Kind kind) {
        return RemoteError{kind, 0, reply_->errorString()};
    };
    switch (reply_->error()) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
        return because(RemoteError::Kind::Refused);
    case QNetworkReply::HostNotFoundError:
        return because(isOffline() ? RemoteError::Kind::NoNetwork : RemoteError::Kind::NoSuchHost);
    case QNetworkReply::SslHandshakeFailedError:
        if (certificateErrors_.isEmpty()) return because(RemoteError::Kind::Certificate);
        return {RemoteError::Kind::Certificate, 0, certificateErrors_};
    case QNetworkReply::TimeoutError:
        return because(RemoteError::Kind::TimedOut);
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
        return because(RemoteError::Kind::NoNetwork);
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolInvalidOperationError:
    case QNetworkReply::ProtocolUnknownError:
        return because(RemoteError::Kind::Malformed);
    default:
        return because(RemoteError::Kind::Interrupted);
    }
}

bool DavExchange::isGoodHost(const QUrl &url) const
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

// By hand, because a redirected request must stay what it is, with its body.
void DavExchange::moved()
{
    const QUrl here = answer_.url;
    QUrl there = here.resolved(QUrl::fromEncoded(reply_->rawHeader("Location").trimmed()));
    there.setUserInfo({});
    there.setFragment({});
    if (!isGoodHost(there) || ++redirects_ > mostRedirects)
        return fail(RemoteError::Kind::Malformed,
                    QStringLiteral("redirected from %1 to %2").arg(here.toString(), there.toString()));
    if (here.scheme() == QLatin1String("https") && there.scheme() != QLatin1String("https"))
        return fail(RemoteError::Kind::Unencrypted, there.toString());
    if (request_.writes() && !isSameServer(server_, there))
        return fail(RemoteError::Kind::Elsewhere, there.toString());
    answer_.body.clear();
    ask(there);
}

void DavExchange::complete()
{
    const QByteArray encoding = reply_->rawHeader("Content-Encoding").trimmed().toLower();
    if (!answer_.error && !encoding.isEmpty() && encoding != "identity")
        answer_.error = {RemoteError::Kind::Malformed, answer_.status,
                         QStringLiteral("encoded as %1").arg(QString::fromLatin1(encoding))};
    if (!answer_.error && answer_.status == 207 && !multistatus_.finish())
        answer_.error = {RemoteError::Kind::Malformed, answer_.status, multistatus_.why()};
    answer_.responses = multistatus_.responses();
    answer_.syncToken = multistatus_.syncToken();
    answer_.etag = normalEtag(reply_->rawHeader("ETag"));
    answer_.location = reply_->rawHeader("Location");
    answer_.type = reply_->rawHeader("Content-Type").split(';').constFirst().trimmed().toLower();
    finish();
}

void DavExchange::fail(RemoteError::Kind kind, const QString &detail)
{
    answer_.status = reply_ ? status() : 0;
    answer_.error = {kind, answer_.status, detail};
    finish();
}

void DavExchange::finish()
{
    if (isEnded_) return;
    isEnded_ = true;
    still_.stop();
    whole_.stop();
    drop();
    Q_EMIT ended(answer_);
}

void DavExchange::drop()
{
    if (!reply_) return;
    reply_->disconnect(this);
    reply_->abort();
    reply_->deleteLater();
}
