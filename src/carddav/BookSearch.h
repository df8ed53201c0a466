// The way from an address to the address books: what it names, what lies in it, the person's home on that
// server, and the server's own word where such things are.
#pragma once

#include "carddav/DavConnection.h"
#include "carddav/Discovery.h"

#include <deque>
#include <QSet>

class Discovery::Search final
{
public:
    Search(const QUrl &start, const RemoteAccount &account, const RemoteLimits &limits, Answer answer);

    void start();

private:
    enum class Look { AtIt, InIt };
    struct Place {
        QUrl url;
        Look look;
    };

    void next();
    void answered(const Place &place, const DavAnswer &answer);
    bool takeBooks(const DavAnswer &answer);
    void follow(const Place &place, const DavAnswer &answer);
    void note(const RemoteError &error);
    void finish();

    DavConnection connection_;
    Answer answer_;
    std::deque<Place> places_; // still to be looked at, the best first
    QSet<QString> seen_;
    bool isFirst_ = true;
    RemoteError error_; // the first that tells more than that there is no book
    QList<FoundBook> books_;
};
