// Fetches one small page by a plain HTTP/1.0 GET, by events, without ever blocking the interface thread.
#pragma once

#include <QObject>
#include <QTcpSocket>
#include <QTimer>

class HttpGet final : public QObject
{
    Q_OBJECT
public:
    explicit HttpGet(QObject *parent = nullptr);
    ~HttpGet() override;

    bool isRunning() const { return running_; }

    // Begins. The object is a path such as "/page.ini". While one runs, another is not begun.
    void start(const QString &host, quint16 port, const QString &object, const QString &agent);

Q_SIGNALS:
    void answered(); // the server has begun to answer
    // What the server sent behind its headers, whatever its status; empty where there was no server, no
    // answer within 15 seconds, or more than 64 KiB. Comes once for each start.
    void finished(const QByteArray &body);

private:
    void read();
    void finish(const QByteArray &body);
    QByteArray body() const;

    QTcpSocket socket_;
    QTimer limit_;
    QByteArray request_;
    QByteArray answer_;
    bool running_ = false;
};
