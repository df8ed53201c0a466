#include "platform/HttpGet.h"

#include <chrono>

using namespace std::chrono_literals;

namespace
{
constexpr auto timeLimit = 15s;
constexpr qsizetype sizeLimit = qsizetype{64} * 1024;
} // namespace

HttpGet::HttpGet(QObject *parent) : QObject(parent), limit_(this)
{
    limit_.setSingleShot(true);
    connect(&limit_, &QTimer::timeout, this, [this] { finish({}); });
    connect(&socket_, &QAbstractSocket::connected, this, [this] { socket_.write(request_); });
    connect(&socket_, &QIODevice::readyRead, this, &HttpGet::read);
    // The end of the connection is the end of the page; a connection that never was brings an empty one.
    connect(&socket_, &QAbstractSocket::errorOccurred, this, [this] { finish(body()); });
    connect(&socket_, &QAbstractSocket::disconnected, this, [this] { finish(body()); });
}

HttpGet::~HttpGet() { socket_.disconnect(this); }

void HttpGet::start(const QString &host, quint16 port, const QString &object, const QString &agent)
{
    if (running_) return;
    running_ = true;
    answer_.clear();
    request_ = QStringLiteral("GET %1 HTTP/1.0\r\nHost: %2\r\nUser-Agent: %3\r\n\r\n")
                   .arg(object, host, agent)
                   .toUtf8();
    limit_.start(timeLimit);
    socket_.connectToHost(host, port);
}

void HttpGet::read()
{
    const bool first = answer_.isEmpty();
    answer_ += socket_.readAll();
    if (first) Q_EMIT answered();
    if (answer_.size() > sizeLimit) finish({});
}

QByteArray HttpGet::body() const
{
    const qsizetype end = answer_.indexOf("\r\n\r\n");
    return answer_.startsWith("HTTP/") && end >= 0 ? answer_.mid(end + 4) : QByteArray();
}

void HttpGet::finish(const QByteArray &body)
{
    if (!running_) return;
    running_ = false;
    limit_.stop();
    socket_.abort();
    Q_EMIT finished(body);
}
