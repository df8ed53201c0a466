#include "carddav/CardAnswer.h"

namespace
{
// The page on which a network asks its guests to log in comes with every sign of success.
bool isCard(const QByteArray &body)
{
    QByteArray start = body.left(64);
    if (start.startsWith("\xEF\xBB\xBF")) start = start.mid(3);
    return start.trimmed().toUpper().startsWith("BEGIN");
}
} // namespace

RemoteError errorOfCard(const DavAnswer &answer)
{
    if (answer.error) return answer.error;
    const bool isPage = answer.type == "text/html" || answer.type == "application/xhtml+xml";
    if (answer.status == 200 && !isPage && isCard(answer.body)) return {};
    return {RemoteError::Kind::Malformed, answer.status, QStringLiteral("no card, but ") + answer.type};
}
