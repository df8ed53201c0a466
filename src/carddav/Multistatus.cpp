#include "carddav/Multistatus.h"

#include "carddav/Href.h"

#include <algorithm>
#include <QHash>

namespace
{
constexpr qsizetype deepest = 64;
constexpr qsizetype mostResponses = 200'000;
constexpr qsizetype longestText = 1 << 20; // of anything but a card, in characters

// "HTTP/1.1 404 Not Found"
int statusIn(const QString &line)
{
    const QString number = line.trimmed().section(u' ', 1, 1, QString::SectionSkipEmpty);
    return std::clamp(number.toInt(), 0, 999);
}

bool isGood(int status) { return status == 0 || (status >= 200 && status < 300); }
} // namespace

MultistatusReader::Tag MultistatusReader::tagOf(QStringView space, QStringView name)
{
    static const QHash<QString, Tag> dav{
        {QStringLiteral("multistatus"), Tag::Multistatus},
        {QStringLiteral("response"), Tag::Response},
        {QStringLiteral("href"), Tag::Href},
        {QStringLiteral("status"), Tag::Status},
        {QStringLiteral("propstat"), Tag::Propstat},
        {QStringLiteral("prop"), Tag::Prop},
        {QStringLiteral("resourcetype"), Tag::ResourceType},
        {QStringLiteral("collection"), Tag::Collection},
        {QStringLiteral("displayname"), Tag::Name},
        {QStringLiteral("getetag"), Tag::Etag},
        {QStringLiteral("current-user-principal"), Tag::Principal},
        {QStringLiteral("current-user-privilege-set"), Tag::Rights},
        {QStringLiteral("privilege"), Tag::Privilege},
        {QStringLiteral("all"), Tag::WriteRight},
        {QStringLiteral("write"), Tag::WriteRight},
        {QStringLiteral("write-content"), Tag::WriteRight},
        {QStringLiteral("bind"), Tag::WriteRight},
        {QStringLiteral("sync-token"), Tag::SyncToken},
    };
    static const QHash<QString, Tag> cards{
        {QStringLiteral("addressbook"), Tag::Book},
        {QStringLiteral("address-data"), Tag::Card},
        {QStringLiteral("addressbook-home-set"), Tag::Homes},
    };
    if (space == QLatin1String("DAV:")) return dav.value(name.toString(), Tag::Other);
    if (space == QLatin1String("urn:ietf:params:xml:ns:carddav"))
        return cards.value(name.toString(), Tag::Other);
    return Tag::Other;
}

bool MultistatusReader::add(const QByteArray &piece)
{
    if (!why_.isEmpty()) return false;
    xml_.addData(piece);
    return read();
}

bool MultistatusReader::finish()
{
    if (!why_.isEmpty()) return false;
    return ended_ || fail(QStringLiteral("the answer ends too early"));
}

bool MultistatusReader::read()
{
    while (!xml_.atEnd()) {
        switch (xml_.readNext()) {
        case QXmlStreamReader::StartElement:
            begin(tagOf(xml_.namespaceUri(), xml_.name()));
            break;
        case QXmlStreamReader::EndElement:
            end(path_.takeLast());
            break;
        case QXmlStreamReader::Characters:
            text(xml_.text());
            break;
        case QXmlStreamReader::EndDocument:
            ended_ = true;
            break;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            return fail(QStringLiteral("the answer brings a document type or an entity"));
        default:
            break;
        }
        if (!why_.isEmpty()) return false;
    }
    const bool wantsMore = xml_.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    return !xml_.hasError() || wantsMore || fail(xml_.errorString());
}

void MultistatusReader::begin(Tag tag)
{
    if (path_.isEmpty() && tag != Tag::Multistatus) fail(QStringLiteral("the answer is no multistatus"));
    if (path_.size() >= deepest) fail(QStringLiteral("the answer is nested too deeply"));
    if (responses_.size() >= mostResponses) fail(QStringLiteral("the answer names too many things"));
    if (tag == Tag::Response) response_ = {};
    if (tag == Tag::Propstat) {
        properties_ = response_;
        propertiesStatus_ = 0;
    }
    if (tag == Tag::Rights) properties_.tellsRights = true;
    path_ << tag;
    text_.clear();
    isTextTooBig_ = false;
}

void MultistatusReader::text(QStringView piece)
{
    if (path_.isEmpty()) return;
    const bool isCard = path_.constLast() == Tag::Card;
    if (text_.size() + piece.size() > (isCard ? largestCard_ : longestText)) {
        isTextTooBig_ = true;
        text_ = QString();
    }
    if (!isTextTooBig_) text_ += piece;
}

MultistatusReader::Tag MultistatusReader::parent(qsizetype steps) const
{
    return path_.size() < steps ? Tag::Other : path_[path_.size() - steps];
}

void MultistatusReader::end(Tag tag)
{
    switch (tag) {
    case Tag::Response:
        responses_ << response_;
        break;
    case Tag::Propstat:
        // Properties that could not be told are not taken for empty ones.
        if (isGood(propertiesStatus_)) response_ = properties_;
        break;
    case Tag::Collection:
        properties_.isCollection |= parent() == Tag::ResourceType;
        break;
    case Tag::Book:
        properties_.isBook |= parent() == Tag::ResourceType;
        break;
    case Tag::WriteRight:
        properties_.mayWrite |= parent() == Tag::Privilege && parent(2) == Tag::Rights;
        break;
    default:
        endOfText(tag, parent());
    }
    text_.clear();
}

void MultistatusReader::endOfText(Tag tag, Tag parent)
{
    const bool isProperty = parent == Tag::Prop;
    if (tag == Tag::Href && parent == Tag::Response)
        response_.href = text_.trimmed();
    else if (tag == Tag::Href && parent == Tag::Principal)
        properties_.principal = text_.trimmed();
    else if (tag == Tag::Href && parent == Tag::Homes)
        properties_.homes << text_.trimmed();
    else if (tag == Tag::Status && parent == Tag::Propstat)
        propertiesStatus_ = statusIn(text_);
    else if (tag == Tag::Status && parent == Tag::Response)
        response_.status = statusIn(text_);
    else if (tag == Tag::SyncToken && parent == Tag::Multistatus)
        syncToken_ = text_.trimmed().toUtf8();
    else if (tag == Tag::Name && isProperty)
        properties_.name = text_.simplified();
    else if (tag == Tag::Etag && isProperty)
        properties_.etag = normalEtag(text_.toUtf8());
    else if (tag == Tag::Card && isProperty) {
        properties_.hasCard = true;
        properties_.isCardTooBig = isTextTooBig_;
        properties_.card = text_.toUtf8();
    }
}

bool MultistatusReader::fail(const QString &why)
{
    if (why_.isEmpty()) why_ = why;
    return false;
}
