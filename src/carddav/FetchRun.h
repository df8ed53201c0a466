// Fetches the cards that are asked for: a hundred by one question, and singly what that leaves open.
#pragma once

#include "carddav/DavConnection.h"
#include "carddav/RemoteBook.h"

#include <memory>
#include <QSet>

class FetchRun final : public std::enable_shared_from_this<FetchRun>
{
public:
    // `asksMany` is the book's knowledge whether the server answers such questions; it may turn false.
    FetchRun(DavConnection &connection, bool &asksMany, RemoteBook::CardsPortion portion,
             RemoteBook::EndAnswer end);

    void start(const QStringList &hrefs);

private:
    void next();
    void askForMany();
    void manyCame(const DavAnswer &answer);
    void askSingly();
    void oneCame(const QString &href, const DavAnswer &answer);
    void finish(const RemoteError &error);

    DavConnection &connection_; // outlives the requests, and those hold the run
    DavEra era_;
    bool &asksMany_;
    RemoteBook::CardsPortion portion_;
    RemoteBook::EndAnswer end_;
    QStringList open_;     // not asked for yet
    QStringList asked_;    // by the question that runs, and not answered yet
    qsizetype single_ = 0; // requests that run for one card each
};
