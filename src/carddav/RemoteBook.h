// One address book somewhere else, as whoever compares it with contacts of one's own needs it. Every call
// comes back at once; its answer is told later, from the event loop, exactly once, and never once cancel()
// was called or the book deleted. An answer may delete the book. The calls that carry single cards may be
// made in any number: only a few run at a time, in the order in which they were made.
//
// A card there has a name (its "href": an absolute path, always spelled in one way, to be compared byte by
// byte) and a mark of its state (its "etag"), which is another one after every change. A mark is empty where
// the server gives none.
#pragma once

#include "carddav/RemoteError.h"

#include <functional>
#include <QByteArray>
#include <QList>
#include <QStringList>

struct RemoteMember {
    QString href;
    QByteArray etag;
};

// What has happened in the book since the state that a token stands for.
struct RemoteChanges {
    // True: `changed` is the whole book, and what it does not name is not there (any more). So it is with an
    // empty token, with a token that the server has forgotten, and with a server that knows no tokens.
    bool whole = false;
    QList<RemoteMember> changed; // new or changed, each once
    QStringList removed;         // each once; empty with `whole`
    QByteArray token;            // for the next time; empty where the server gives none
};

// One card that was asked for.
struct RemoteCard {
    QString href;
    QByteArray etag;
    QByteArray text;   // as the server writes it, which is hardly ever as it was sent
    RemoteError error; // why there is no text; NotFound: it was deleted in the meantime
};

// How a card stands there after it was written.
struct RemoteWritten {
    QString href; // another than the one asked for where the server chose its own
    QByteArray etag;
    QByteArray text; // only where it had to be fetched to learn its state; otherwise empty
};

class RemoteBook
{
public:
    virtual ~RemoteBook() = default;

    // An empty token asks for the whole book.
    using ChangesAnswer = std::function<void(const RemoteError &, const RemoteChanges &)>;
    virtual void changesSince(const QByteArray &token, ChangesAnswer answer) = 0;

    // The cards come in portions, each of those asked for once, those that could not be had with their error.
    // The end comes after the last portion; with an error where the whole undertaking failed and cards are
    // missing.
    using CardsPortion = std::function<void(const QList<RemoteCard> &)>;
    using EndAnswer = std::function<void(const RemoteError &)>;
    virtual void fetch(const QStringList &hrefs, CardsPortion portion, EndAnswer end) = 0;

    // The name under which a new card with that UID is to be created.
    virtual QString hrefFor(const QString &uid) const = 0;

    using WrittenAnswer = std::function<void(const RemoteError &, const RemoteWritten &)>;
    // Changed: there is a card of that name already.
    virtual void create(const QString &href, const QByteArray &card, WrittenAnswer answer) = 0;
    // Changed: the card is not in that state any more, or gone. With an empty mark it is replaced as long as
    // it is there.
    virtual void replace(const QString &href, const QByteArray &etag, const QByteArray &card,
                         WrittenAnswer answer) = 0;
    // Changed: the card is not in that state any more. One that is gone already counts as removed.
    virtual void remove(const QString &href, const QByteArray &etag, EndAnswer answer) = 0;

    // Gives up all that runs. Nothing is told any more; what a server has already understood stays done.
    virtual void cancel() = 0;
};
