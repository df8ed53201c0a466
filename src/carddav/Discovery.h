// Finds the address books of a person from whatever address is known: that of the server, of the person's
// home there, or of a book.
#pragma once

#include "carddav/RemoteAccount.h"
#include "carddav/RemoteError.h"

#include <functional>
#include <memory>
#include <QList>

struct FoundBook {
    QUrl address; // for AddressBook
    QString name; // as the person called it; otherwise the last piece of its address
    bool mayWrite = true;
    bool exposed = false; // see isExposed
};

// One search. Works by events and never blocks.
class Discovery
{
public:
    using Answer = std::function<void(const RemoteError &, const QList<FoundBook> &)>;

    Discovery(QString address, RemoteAccount account, const RemoteLimits &limits = {});
    ~Discovery(); // gives it up, at any moment
    Discovery(const Discovery &) = delete;
    Discovery &operator=(const Discovery &) = delete;

    // The answer comes once, later, unless the search is deleted before; it may delete it. The books are at
    // least one; without any there is an error (NoBook), and with Elsewhere the person may search again from
    // that address.
    void start(Answer answer);

private:
    class Search;
    QString address_;
    RemoteAccount account_;
    RemoteLimits limits_;
    std::unique_ptr<Search> search_;
};
