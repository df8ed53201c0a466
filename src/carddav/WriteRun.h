// Writes or deletes one card under the condition that it is in the state in which it was last seen.
#pragma once

#include "carddav/DavConnection.h"
#include "carddav/RemoteBook.h"

#include <memory>

class WriteRun final : public std::enable_shared_from_this<WriteRun>
{
public:
    WriteRun(DavConnection &connection, QString href, RemoteBook::WrittenAnswer answer);

    void create(const QByteArray &card);
    void replace(const QByteArray &etag, const QByteArray &card);
    void remove(const QByteArray &etag);

private:
    using Step = void (WriteRun::*)(const DavAnswer &);
    void send(const DavRequest &request, Step then);
    void written(const DavAnswer &answer);
    void replaced(const DavAnswer &answer);
    void fetched(const DavAnswer &answer);
    void removed(const DavAnswer &answer);
    void looked(const DavAnswer &answer);

    DavConnection &connection_; // outlives the requests, and those hold the run
    QString href_;
    RemoteBook::WrittenAnswer answer_;
};
