// An address book on a server, by CardDAV over HTTP.
#pragma once

#include "carddav/RemoteAccount.h"
#include "carddav/RemoteBook.h"

#include <memory>

class AddressBook final : public RemoteBook
{
public:
    AddressBook(const QUrl &address, const RemoteAccount &account, const RemoteLimits &limits = {});
    ~AddressBook() override; // as cancel()
    AddressBook(const AddressBook &) = delete;
    AddressBook &operator=(const AddressBook &) = delete;

    void changesSince(const QByteArray &token, ChangesAnswer answer) override;
    void fetch(const QStringList &hrefs, CardsPortion portion, EndAnswer end) override;
    QString hrefFor(const QString &uid) const override;
    void create(const QString &href, const QByteArray &card, WrittenAnswer answer) override;
    void replace(const QString &href, const QByteArray &etag, const QByteArray &card,
                 WrittenAnswer answer) override;
    void remove(const QString &href, const QByteArray &etag, EndAnswer answer) override;
    void cancel() override;

private:
    class Client;
    std::unique_ptr<Client> client_;
};
