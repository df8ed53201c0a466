// The requests to one server: at most six at a time, with one name and password, all of which end when told
// to.
#pragma once

#include "carddav/Multistatus.h"
#include "carddav/RemoteAccount.h"
#include "carddav/RemoteError.h"

#include <deque>
#include <functional>
#include <QNetworkAccessManager>
#include <QPointer>

class DavExchange;

struct DavRequest {
    QByteArray verb;
    QUrl url;
    QByteArray body;
    QByteArray bodyType;
    QList<std::pair<QByteArray, QByteArray>> headers;
    bool isCard = false; // the answer is a single card, and limited as such

    bool writes() const { return verb == "PUT" || verb == "DELETE"; }
};

struct DavAnswer {
    RemoteError error; // also for every status from 300 on
    int status = 0;
    QUrl url;                        // where it came from in the end
    QByteArray body;                 // of any answer but a multistatus
    QList<DavResponse> responses;    // of a multistatus
    QByteArray syncToken;            // of a multistatus
    QByteArray etag, location, type; // headers; the mark is normalised

    bool isMultistatus() const { return !error && status == 207; }
};

class DavConnection final : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(const DavAnswer &)>;

    // The password is for the server of that address alone.
    DavConnection(QUrl address, RemoteAccount account, const RemoteLimits &limits);
    ~DavConnection() override;

    const QUrl &address() const { return address_; }
    const RemoteLimits &limits() const { return limits_; }

    // The answer comes later, once, unless it is withdrawn; it may delete the connection. The owner is
    // whoever may want to withdraw all that it has asked.
    void send(const DavRequest &request, const void *owner, Answer answer);
    void withdraw(const void *owner);
    void withdrawAll();

    // From the event loop, unless all is withdrawn before.
    void later(std::function<void()> step);

    // A number that changes with withdrawAll.
    int era() const { return era_; }

private:
    struct Waiting {
        DavRequest request;
        const void *owner;
        Answer answer;
    };
    struct Running {
        DavExchange *exchange; // a child of this
        const void *owner;
        Answer answer;
    };

    void startWaiting();
    void ended(DavExchange *exchange, const DavAnswer &answer);
    void authenticate(QNetworkReply *reply, QAuthenticator *authenticator);

    QUrl address_;
    RemoteAccount account_;
    RemoteLimits limits_;
    QNetworkAccessManager manager_;
    std::deque<Waiting> waiting_;
    std::vector<Running> running_;
    int era_ = 0;
};

// Tells a run whether it may go on after it has called somebody: not once the connection is gone or was told
// to end.
class DavEra
{
public:
    explicit DavEra(DavConnection *connection) : connection_(connection), era_(connection->era()) {}
    bool isOver() const { return !connection_ || connection_->era() != era_; }

private:
    QPointer<DavConnection> connection_;
    int era_;
};
