#include "carddav/DavStatus.h"

namespace
{
using Kind = RemoteError::Kind;

// The refusals of a card have names.
Kind kindOfRefusedCard(int status, const QByteArray &body)
{
    if (body.contains("no-uid-conflict")) return Kind::Changed;
    if (body.contains("max-resource-size") || body.contains("quota-not-exceeded") || status == 413)
        return Kind::NoRoom;
    if (body.contains("valid-address-data") || body.contains("supported-address-data") || status == 400 ||
        status == 415 || status == 422)
        return Kind::NotAccepted;
    return Kind::None;
}

Kind kindOf(int status, const QByteArray &body, const QByteArray &verb)
{
    if (verb == "PUT") {
        const Kind kind = kindOfRefusedCard(status, body);
        if (kind != Kind::None) return kind;
    }
    switch (status) {
    case 401:
        return Kind::Password;
    case 403:
        return Kind::Forbidden;
    case 405:
    case 501:
        return verb == "PROPFIND" || verb == "REPORT" ? Kind::NoBook : Kind::Forbidden;
    case 404:
    case 409: // a folder above it is missing
    case 410:
        return Kind::NotFound;
    case 412:
        return Kind::Changed;
    case 507:
        return Kind::NoRoom;
    default:
        return status < 400 ? Kind::Malformed : Kind::Server;
    }
}
} // namespace

RemoteError errorOfStatus(int status, const QByteArray &body, const QByteArray &verb)
{
    const bool isRedirected =
        status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
    if ((status >= 200 && status < 300) || isRedirected) return {};
    return {kindOf(status, body, verb), status, QStringLiteral("HTTP %1").arg(status)};
}
