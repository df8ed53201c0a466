#include "carddav/DavConnection.h"

#include "carddav/DavExchange.h"

#include <algorithm>
#include <QNetworkProxy>

namespace
{
constexpr std::size_t mostAtOnce = 6;

// No proxy but the application's own, said in a way that makes the toolkit give its sockets a buffer. Without
// one it takes the head of an answer byte by byte from the system, and from a server that never ends it, for
// ever: its thread hears no word to give up any more, and whoever takes the manager down waits for that
// thread.
class WithBuffers final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery & /*query*/) override
    {
        return {QNetworkProxy(QNetworkProxy::DefaultProxy)};
    }
};
} // namespace

DavConnection::DavConnection(QUrl address, RemoteAccount account, const RemoteLimits &limits)
    : address_(std::move(address)), account_(std::move(account)), limits_(limits)
{
    manager_.setProxyFactory(new WithBuffers); // which is the manager's from now on
    connect(&manager_, &QNetworkAccessManager::authenticationRequired, this, &DavConnection::authenticate);
}

DavConnection::~DavConnection() { withdrawAll(); }

void DavConnection::send(const DavRequest &request, const void *owner, Answer answer)
{
    waiting_.push_back({request, owner, std::move(answer)});
    QMetaObject::invokeMethod(this, &DavConnection::startWaiting, Qt::QueuedConnection);
}

void DavConnection::startWaiting()
{
    while (running_.size() < mostAtOnce && !waiting_.empty()) {
        Waiting next = std::move(waiting_.front());
        waiting_.pop_front();
        auto *exchange = new DavExchange(manager_, next.request, account_, address_, limits_, this);
        running_.push_back({exchange, next.owner, std::move(next.answer)});
        connect(exchange, &DavExchange::ended, this,
                [this, exchange](const DavAnswer &answer) { ended(exchange, answer); });
        exchange->start();
    }
}

void DavConnection::ended(DavExchange *exchange, const DavAnswer &answer)
{
    const auto place = std::find_if(running_.begin(), running_.end(),
                                    [exchange](const Running &one) { return one.exchange == exchange; });
    if (place == running_.end()) return;
    const Answer told = std::move(place->answer);
    running_.erase(place);
    exchange->deleteLater();
    startWaiting();
    told(answer); // behind which there may be no connection any more
}

void DavConnection::withdraw(const void *owner)
{
    std::erase_if(waiting_, [owner](const Waiting &one) { return one.owner == owner; });
    std::erase_if(running_, [owner](const Running &one) {
        if (one.owner == owner) delete one.exchange;
        return one.owner == owner;
    });
    startWaiting();
}

void DavConnection::withdrawAll()
{
    ++era_;
    // What an answer holds may hold on to more of them: it goes when the lists are empty.
    const auto waiting = std::exchange(waiting_, {});
    const auto running = std::exchange(running_, {});
    for (const Running &one : running)
        delete one.exchange;
}

void DavConnection::later(std::function<void()> step)
{
    QMetaObject::invokeMethod(
        this, [step = std::move(step), era = DavEra(this)] { era.isOver() ? void() : step(); },
        Qt::QueuedConnection);
}

void DavConnection::authenticate(QNetworkReply *reply, QAuthenticator *authenticator)
{
    for (const Running &one : running_)
        if (one.exchange->owns(reply)) return one.exchange->authenticate(*authenticator);
}
