// One question what has happened in a book: by its token, and where that is of no use, by the whole list.
#pragma once

#include "carddav/DavConnection.h"
#include "carddav/RemoteBook.h"

#include <memory>
#include <QHash>
#include <QSet>

class ChangesRun final : public std::enable_shared_from_this<ChangesRun>
{
public:
    ChangesRun(DavConnection &connection, RemoteBook::ChangesAnswer answer);

    void start(const QByteArray &token);

private:
    void askSince(const QByteArray &token);
    void answered(const DavAnswer &answer);
    void refused();
    void askForList();
    void listed(const DavAnswer &answer);
    bool take(const DavAnswer &answer); // true where the server has held something back
    void finish(const QByteArray &token);

    DavConnection &connection_; // outlives the requests, and those hold the run
    RemoteBook::ChangesAnswer answer_;
    QByteArray token_;
    QSet<QByteArray> usedTokens_;
    bool whole_ = false;
    struct State {
        QByteArray etag;
        bool removed = false;
    };
    QHash<QString, State> states_; // by href
    QStringList order_;            // in which they were told first
};
