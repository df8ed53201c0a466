// Asks a book and waits for what it says.
#pragma once

#include "carddav/AddressBook.h"
#include "carddav/Discovery.h"
#include "testlib/LivroDav.h"

#include <QTest>

namespace asking
{
using Kind = RemoteError::Kind;
constexpr int patience = 60000; // ms: for a busy machine, and never needed by one that works

// Runs the events until it is so: without the pauses of the toolkit's own waiting, which cost a large card
// seconds.
inline void await(const std::function<bool()> &isSo)
{
    const QDeadlineTimer deadline(patience);
    QTimer tick; // so that a silent loop wakes up to look at the time
    tick.start(100);
    while (!isSo() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

struct Changes : RemoteChanges {
    RemoteError error;
    int answers = 0;

    QStringList names() const
    {
        QStringList result;
        for (const RemoteMember &one : changed)
            result << one.href.section(u'/', -1);
        result.sort();
        return result;
    }
};

inline Changes changesSince(RemoteBook &book, const QByteArray &token)
{
    Changes result;
    book.changesSince(token, [&result](const RemoteError &error, const RemoteChanges &changes) {
        static_cast<RemoteChanges &>(result) = changes;
        result.error = error;
        ++result.answers;
    });
    await([&] { return result.answers > 0; });
    return result;
}

struct Fetched {
    QMap<QString, RemoteCard> cards; // by href
    int portions = 0, told = 0, ends = 0;
    RemoteError error;
};

inline Fetched fetch(RemoteBook &book, const QStringList &hrefs)
{
    Fetched result;
    book.fetch(
        hrefs,
        [&result](const QList<RemoteCard> &cards) {
            ++result.portions;
            result.told += int(cards.size());
            for (const RemoteCard &card : cards)
                result.cards[card.href] = card;
        },
        [&result](const RemoteError &error) {
            result.error = error;
            ++result.ends;
        });
    await([&] { return result.ends > 0; });
    return result;
}

struct Written : RemoteWritten {
    RemoteError error;
    int answers = 0;
};

// What a call to create, replace or remove says.
template<typename Call> Written written(Call &&call)
{
    Written result;
    call([&result](const RemoteError &error, const RemoteWritten &state) {
        static_cast<RemoteWritten &>(result) = state;
        result.error = error;
        ++result.answers;
    });
    await([&] { return result.answers > 0; });
    return result;
}

inline Written create(RemoteBook &book, const QString &href, const QByteArray &card)
{
    return written([&](auto answer) { book.create(href, card, answer); });
}
inline Written replace(RemoteBook &book, const QString &href, const QByteArray &etag, const QByteArray &card)
{
    return written([&](auto answer) { book.replace(href, etag, card, answer); });
}
inline Written remove(RemoteBook &book, const QString &href, const QByteArray &etag)
{
    return written([&](auto answer) {
        book.remove(href, etag, [answer](const RemoteError &error) { answer(error, {}); });
    });
}

struct Found {
    QList<FoundBook> books;
    RemoteError error;
    int answers = 0;
};

inline Found find(const QString &address, const RemoteAccount &account = {}, const RemoteLimits &limits = {})
{
    Found result;
    Discovery discovery(address, account, limits);
    discovery.start([&result](const RemoteError &error, const QList<FoundBook> &books) {
        result.error = error;
        result.books = books;
        ++result.answers;
    });
    await([&] { return result.answers > 0; });
    return result;
}

inline QByteArray card(const QByteArray &name)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name.toHex() + "\r\nFN:" + name + "\r\nN:" + name +
           ";;;;\r\nEND:VCARD\r\n";
}

// A book with its server and its client.
struct Book {
    explicit Book(int cards = 0)
    {
        for (int number = 1; number <= cards; ++number)
            remote.Por(QByteArray::number(number) + ".vcf", card("C" + QByteArray::number(number)));
    }
    QString href(const QString &name) const { return QString::fromLatin1(remote.livro) + name; }
    QStringList hrefs(int count) const
    {
        QStringList result;
        for (int number = 1; number <= count; ++number)
            result << href(QStringLiteral("%1.vcf").arg(number));
        return result;
    }

    LivroDav remote;
    ServidorHttp server{std::ref(remote)};
    AddressBook local{QUrl(server.Endereco(QStringLiteral("/dav/ana/contactos/"))), {}};
};

// So that a kind can be compared and read in a report.
inline QString nameOf(Kind kind)
{
    static const QStringList names =
        QStringLiteral(
            "None Address NoNetwork NoSuchHost Refused Interrupted TimedOut Certificate Unencrypted "
            "Elsewhere Password Forbidden NotFound NoBook Changed NotAccepted NoRoom TooBig "
            "Malformed Server")
            .split(u' ');
    return names.value(int(kind));
}
inline QString nameOf(const RemoteError &error) { return nameOf(error.kind); }
} // namespace asking
