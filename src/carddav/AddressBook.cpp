#include "carddav/AddressBook.h"

#include "carddav/ChangesRun.h"
#include "carddav/FetchRun.h"
#include "carddav/Href.h"
#include "carddav/WriteRun.h"

#include <QCryptographicHash>

namespace
{
constexpr qsizetype longestName = 100;

QUrl asFolder(const QUrl &address)
{
    const QString path = normalHref(address, address.path(QUrl::FullyEncoded));
    return addressAt(address, path.endsWith(u'/') ? path : path + u'/');
}

// A name that needs no code in an address and is no hidden or special file of the server.
bool isPlainName(const QByteArray &uid)
{
    if (uid.isEmpty() || uid.size() > longestName || uid.startsWith('.')) return false;
    return uid == uid.toPercentEncoding();
}
} // namespace

class AddressBook::Client
{
public:
    Client(const QUrl &address, const RemoteAccount &account, const RemoteLimits &limits)
        : connection(asFolder(address), account, limits)
    {
    }
    bool asksMany = true;
    DavConnection connection;
};

AddressBook::AddressBook(const QUrl &address, const RemoteAccount &account, const RemoteLimits &limits)
    : client_(std::make_unique<Client>(address, account, limits))
{
}

AddressBook::~AddressBook() = default;

void AddressBook::changesSince(const QByteArray &token, ChangesAnswer answer)
{
    std::make_shared<ChangesRun>(client_->connection, std::move(answer))->start(token);
}

void AddressBook::fetch(const QStringList &hrefs, CardsPortion portion, EndAnswer end)
{
    const auto run = std::make_shared<FetchRun>(client_->connection, client_->asksMany, std::move(portion),
                                                std::move(end));
    client_->connection.later([run, hrefs] { run->start(hrefs); });
}

QString AddressBook::hrefFor(const QString &uid) const
{
    QByteArray name = uid.toUtf8();
    if (!isPlainName(name)) name = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return normalHref(client_->connection.address(), QString::fromLatin1(name) + QStringLiteral(".vcf"));
}

void AddressBook::create(const QString &href, const QByteArray &card, WrittenAnswer answer)
{
    std::make_shared<WriteRun>(client_->connection, href, std::move(answer))->create(card);
}

void AddressBook::replace(const QString &href, const QByteArray &etag, const QByteArray &card,
                          WrittenAnswer answer)
{
    std::make_shared<WriteRun>(client_->connection, href, std::move(answer))->replace(etag, card);
}

void AddressBook::remove(const QString &href, const QByteArray &etag, EndAnswer answer)
{
    const auto told = [answer = std::move(answer)](const RemoteError &error, const RemoteWritten &) {
        answer(error);
    };
    std::make_shared<WriteRun>(client_->connection, href, told)->remove(etag);
}

void AddressBook::cancel() { client_->connection.withdrawAll(); }
