// Reads the answer of a server to PROPFIND and REPORT while it arrives. Nothing in it can make the reader
// grow beyond its limits: entities and document types are refused.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QXmlStreamReader>

// What is told of one thing on the server. hrefs are as the server wrote them.
struct DavResponse {
    QString href;
    int status = 0; // of the thing as a whole; 0 where only single properties have one
    bool isCollection = false;
    bool isBook = false;
    QString name;
    QByteArray etag; // normalised
    bool hasCard = false;
    bool isCardTooBig = false;
    QByteArray card;
    QString principal;
    QStringList homes;
    bool tellsRights = false;
    bool mayWrite = false;
};

class MultistatusReader
{
public:
    explicit MultistatusReader(qint64 largestCard) : largestCard_(largestCard) {}

    // False once the answer is of no use; then why() says so.
    bool add(const QByteArray &piece);
    // True where the answer was whole.
    bool finish();

    const QString &why() const { return why_; }
    const QList<DavResponse> &responses() const { return responses_; }
    const QByteArray &syncToken() const { return syncToken_; }

private:
    enum class Tag {
        Other,
        Multistatus,
        Response,
        Href,
        Status,
        Propstat,
        Prop,
        ResourceType,
        Collection,
        Book,
        Name,
        Etag,
        Card,
        Principal,
        Homes,
        Rights,
        Privilege,
        WriteRight,
        SyncToken,
    };

    static Tag tagOf(QStringView space, QStringView name);
    bool read();
    void begin(Tag tag);
    void text(QStringView piece);
    void end(Tag tag);
    void endOfText(Tag tag, Tag parent);
    Tag parent(qsizetype steps = 1) const;
    bool fail(const QString &why);

    QXmlStreamReader xml_;
    qint64 largestCard_;
    QList<Tag> path_;
    QString text_;
    bool isTextTooBig_ = false;
    bool ended_ = false;
    QString why_;

    DavResponse response_;
    DavResponse properties_; // the same with what the propstat tells that is being read
    int propertiesStatus_ = 0;
    QList<DavResponse> responses_;
    QByteArray syncToken_;
};
