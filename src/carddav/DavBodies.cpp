#include "carddav/DavBodies.h"

namespace
{
constexpr auto head = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
constexpr auto spaces = " xmlns:D=\"DAV:\" xmlns:C=\"urn:ietf:params:xml:ns:carddav\"";

QByteArray escaped(const QString &text) { return text.toHtmlEscaped().toUtf8(); }

DavRequest withXml(const QByteArray &verb, const QUrl &url, const char *depth, const QByteArray &root,
                   const QByteArray &content)
{
    DavRequest request{verb, url, {}, "application/xml; charset=utf-8", {{"Depth", depth}}};
    request.body = head + QByteArray("<") + root + spaces + ">" + content + "</" + root + ">";
    return request;
}
} // namespace

DavRequest dav::propfind(const QUrl &url, const char *depth, const QByteArray &properties)
{
    return withXml("PROPFIND", url, depth, "D:propfind", "<D:prop>" + properties + "</D:prop>");
}

DavRequest dav::syncCollection(const QUrl &url, const QByteArray &token)
{
    return withXml("REPORT", url, "0", "D:sync-collection",
                   "<D:sync-token>" + escaped(QString::fromUtf8(token)) +
                       "</D:sync-token><D:sync-level>1</D:sync-level><D:prop><D:getetag/></D:prop>");
}

DavRequest dav::multiget(const QUrl &url, const QStringList &hrefs)
{
    QByteArray content = "<D:prop><D:getetag/><C:address-data/></D:prop>";
    for (const QString &href : hrefs)
        content += "<D:href>" + escaped(href) + "</D:href>";
    return withXml("REPORT", url, "1", "C:addressbook-multiget", content);
}

DavRequest dav::get(const QUrl &url)
{
    DavRequest request{"GET", url, {}, {}, {{"Accept", "text/vcard, text/x-vcard;q=0.9, */*;q=0.1"}}};
    request.isCard = true;
    return request;
}

DavRequest dav::put(const QUrl &url, const QByteArray &card)
{
    return {"PUT", url, card, "text/vcard; charset=utf-8", {}};
}

DavRequest dav::remove(const QUrl &url) { return {"DELETE", url, {}, {}, {}}; }
