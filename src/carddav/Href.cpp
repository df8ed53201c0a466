#include "carddav/Href.h"

namespace
{
int portOf(const QUrl &url) { return url.port(url.scheme() == QLatin1String("https") ? 443 : 80); }

bool isHex(char sign)
{
    return (sign >= '0' && sign <= '9') || (sign >= 'a' && sign <= 'f') || (sign >= 'A' && sign <= 'F');
}

// A "%" that begins no code stands for itself.
QByteArray withStrayPercents(const QByteArray &path)
{
    QByteArray result;
    for (qsizetype at = 0; at < path.size(); ++at) {
        const bool stray =
            path[at] == '%' && (at + 2 >= path.size() || !isHex(path[at + 1]) || !isHex(path[at + 2]));
        result += stray ? QByteArray("%25") : path.mid(at, 1);
    }
    return result;
}

// "." and ".." are resolved as in any address.
QByteArrayList resolved(const QByteArrayList &segments)
{
    QByteArrayList result;
    for (qsizetype at = 0; at < segments.size(); ++at) {
        const bool last = at + 1 == segments.size();
        const QByteArray &segment = segments[at];
        if (segment == ".." && !result.isEmpty()) result.removeLast();
        if (segment != "." && segment != "..")
            result << segment;
        else if (last)
            result << QByteArray();
    }
    return result;
}

// The part of an address behind its host, or the whole of what has none.
QString pathOf(const QString &href)
{
    const qsizetype scheme = href.indexOf(QLatin1String("://"));
    const bool hasHost = scheme > 0 || href.startsWith(QLatin1String("//"));
    if (!hasHost) return href;
    const qsizetype path = href.indexOf(u'/', scheme > 0 ? scheme + 3 : 2);
    return path < 0 ? QStringLiteral("/") : href.mid(path);
}
} // namespace

QString normalHref(const QUrl &base, const QString &href)
{
    QString path = pathOf(href.trimmed());
    path.truncate(path.indexOf(u'?') < 0 ? path.size() : path.indexOf(u'?'));
    path.truncate(path.indexOf(u'#') < 0 ? path.size() : path.indexOf(u'#'));
    if (!path.startsWith(u'/')) {
        const QString folder = base.path(QUrl::FullyEncoded);
        path.prepend(folder.left(folder.lastIndexOf(u'/') + 1));
    }
    if (!path.startsWith(u'/')) path.prepend(u'/');
    QByteArrayList segments;
    for (const QByteArray &segment : path.toUtf8().mid(1).split('/'))
        segments << QByteArray::fromPercentEncoding(withStrayPercents(segment));
    QByteArrayList encoded;
    for (const QByteArray &segment : resolved(segments))
        encoded << segment.toPercentEncoding();
    return u'/' + QString::fromLatin1(encoded.join('/'));
}

QUrl addressAt(const QUrl &base, const QString &normalHref)
{
    QUrl url(base);
    url.setPath(normalHref, QUrl::TolerantMode); // which takes the codes for what they are
    url.setQuery(QString());
    url.setFragment({});
    return url;
}

QUrl addressNamed(const QUrl &base, const QString &href)
{
    const QUrl named = base.resolved(QUrl(href.trimmed(), QUrl::TolerantMode));
    const bool elsewhere = named.isValid() && named.host() != base.host();
    return addressAt(elsewhere ? named : base, normalHref(base, href));
}

bool isSameServer(const QUrl &known, const QUrl &other)
{
    if (known.host().compare(other.host(), Qt::CaseInsensitive) != 0) return false;
    if (known.scheme() == QLatin1String("http") && other.scheme() == QLatin1String("https")) return true;
    return known.scheme() == other.scheme() && portOf(known) == portOf(other);
}

QByteArray normalEtag(const QByteArray &etag)
{
    QByteArray result = etag.trimmed();
    if (result.startsWith("W/") || result.startsWith("w/")) result = result.mid(2).trimmed();
    if (result.isEmpty() || result == "\"\"") return {};
    return result.startsWith('"') ? result : '"' + result + '"';
}
