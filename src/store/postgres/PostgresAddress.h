// Where a database on a server lies, as a person writes it: "postgresql://user@server/database", with the options
// that the server's own library knows, a service of its file among them.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QString>
#include <QStringList>
#include <vector>

// How the server's library takes it.
struct PostgresOption {
    QByteArray name;
    QByteArray value;
};

class PostgresAddress
{
public:
    // Whether a text names a server at all, however wrongly; all others are paths of files.
    static bool isOne(const QString &text);

    // The text without what should not stand in it, for boxes and logs. Of one that can't be understood nothing
    // is shown but that it is an address.
    static QString shown(const QString &text);

    // Raises Failure for one that can't be understood (AddressBroken) or that holds a password
    // (PasswordInAddress). Asks neither the server nor for its name.
    explicit PostgresAddress(const QString &text);

    // The names that have to be looked up before the library is asked, which would block on them.
    QStringList namesToLookUp() const;

    // Everything that the library is handed. A certificate with the server's name is asked for wherever the
    // address does not say otherwise, save on this machine itself. A name without addresses is left out
    // where another one has some.
    std::vector<PostgresOption> options(const QHash<QString, QList<QHostAddress>> &found) const;

    // What the address itself has each session of the server begin with; empty for nothing.
    const QByteArray &settings() const { return settings_; }

    // The file in which the library looks for the password.
    const QString &passwordFile() const { return passwordFile_; }

private:
    struct Host {
        QString name;
        QByteArray port;
        bool lookUp = false;
    };
    void readHosts(const QHash<QByteArray, QByteArray> &named);
    bool isHere() const;

    QByteArray text_;
    std::vector<Host> hosts_;
    QString hostAddress_; // as the address or its service names it
    QHash<QByteArray, bool> named_; // what need not be given a default
    QByteArray settings_;
    QString passwordFile_;
};
