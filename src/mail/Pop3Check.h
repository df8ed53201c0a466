// One look into one mailbox by POP3. Asks how many messages there are and by which names, and leaves. Nothing
// is fetched and nothing deleted. Works by events on the interface thread and never blocks it.
#pragma once

#include "mail/MailServer.h"

#include <QHostAddress>
#include <QObject>
#include <QSslSocket>
#include <QStringList>
#include <QTimer>

enum class MailError {
    None,
    Address,      // the server's name is none
    NotFound,     // no such host
    Unreachable,  // it does not accept the connection
    TimedOut,     // it took too long
    Closed,       // it hung up
    Refused,      // name or password
    Busy,         // the mailbox is in use, or the server asks to come back later
    Certificate,  // it cannot be trusted, or is not the one of last time
    NotEncrypted, // it was encrypted once and no longer is
    Garbled,      // what came is no POP3
};

class Pop3Check final : public QObject
{
    Q_OBJECT
public:
    // What is remembered of a server's encryption.
    struct Trust {
        bool encryptedBefore = false;
        QByteArray fingerprint; // of a certificate that could not be verified and was trusted at first use
    };

    struct Result {
        int messages = 0;
        QStringList uids; // empty where the server knows no names
        bool hasUids = false;
        int loginDelay = 0; // seconds that the server wants between two visits
        Trust trust;        // as it stands after this visit
    };

    // How long it waits, in milliseconds.
    struct Limits {
        int address = 4000; // for one of the addresses that a name may have
        int answer = 15000; // for a connection with its encryption, and for each answer
        int check = 60000;  // altogether
    };

    Pop3Check(MailServer server, const QString &user, const QString &password, Trust trust,
              const Limits &limits, QObject *parent = nullptr);
    ~Pop3Check() override;

    void start();

Q_SIGNALS:
    // Exactly one of these comes, once, unless the check is deleted first.
    void succeeded(const Pop3Check::Result &result);
    void failed(MailError error);

private:
    enum class Step {
        Resolving,
        Connecting,
        Handshake,
        Greeting,
        Capa,
        Stls,
        User,
        Pass,
        Stat,
        Uidl,
        Quit,
        Done
    };

    void connectToNextAddress();
    void awaitGreeting();
    void socketFailed();
    void encrypted();
    void judgeCertificate();
    void readLines();
    void line(const QByteArray &text);
    void capability(const QByteArray &text);
    void afterCapabilities();
    void statistics(const QByteArray &text);
    void name(const QByteArray &text);
    void beginHandshake();
    void ask(Step step, const QByteArray &command);
    void refuse(const QByteArray &answer, MailError meaning);
    void fail(MailError error);
    void finish();
    void letGo();

    MailServer server_;
    Limits limits_;
    QByteArray user_;
    QByteArray password_;
    Result result_;
    QSslSocket socket_;
    QTimer stepTimer_;
    QTimer wholeTimer_;
    QList<QHostAddress> addresses_;
    int lookup_ = -1;
    Step step_ = Step::Resolving;
    bool offersStls_ = false;
    int capabilities_ = 0; // told so far
    bool inList_ = false;  // between the first line of a list and its "."
};
