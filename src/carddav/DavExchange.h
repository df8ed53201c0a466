// One request with its answer: redirects, name and password, and the limits of size and time.
#pragma once

#include "carddav/DavConnection.h"

#include <QAuthenticator>
#include <QNetworkReply>
#include <QTimer>

class DavExchange final : public QObject
{
    Q_OBJECT
public:
    DavExchange(QNetworkAccessManager &manager, DavRequest request, RemoteAccount account, QUrl server,
                const RemoteLimits &limits, QObject *parent);
    ~DavExchange() override; // gives it up

    void start();
    bool owns(const QNetworkReply *reply) const { return reply == reply_; }
    void authenticate(QAuthenticator &authenticator);

Q_SIGNALS:
    void ended(const DavAnswer &answer); // once

private:
    void ask(const QUrl &url);
    void moved();
    void headersCame();
    void bodyCame();
    void replyFinished();
    RemoteError errorOfReply() const;
    RemoteError errorOfWay() const;
    void complete();
    void fail(RemoteError::Kind kind, const QString &detail);
    void finish();
    void drop();
    int status() const;
    bool isGoodHost(const QUrl &url) const;

    QNetworkAccessManager &manager_;
    DavRequest request_;
    RemoteAccount account_;
    QUrl server_;
    RemoteLimits limits_;
    QPointer<QNetworkReply> reply_;
    QTimer still_;
    QTimer whole_;
    MultistatusReader multistatus_;
    DavAnswer answer_;
    QString certificateErrors_;
    qint64 received_ = 0;
    int redirects_ = 0;
    int asked_ = 0; // times that a server wanted name and password
    bool isEnded_ = false;
};
