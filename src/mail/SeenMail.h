// What has been announced of each mailbox, and how each server was found to be encrypted. Kept over restarts
// in a small file that only its owner can read; mailboxes and messages stand in it as hashes.
#pragma once

#include "mail/Pop3Check.h"

#include <QJsonObject>

class SeenMail
{
public:
    explicit SeenMail(QString path);

    // How many of the messages have not been announced yet. At the first sight of a mailbox all are new.
    int countNew(const QString &mailbox, const Pop3Check::Result &result) const;

    // The messages have been announced.
    void announce(const QString &mailbox, const Pop3Check::Result &result);

    Pop3Check::Trust trust(const QString &mailbox) const;
    void remember(const QString &mailbox, const Pop3Check::Trust &trust);

private:
    QJsonObject entry(const QString &mailbox) const;
    void store(const QString &mailbox, const QJsonObject &entry);

    QString path_;
    QJsonObject entries_;
};
