#include "mail/MailServer.h"

#include <QRegularExpression>

namespace
{
constexpr quint16 plainPort = 110;
constexpr quint16 tlsPort = 995;
} // namespace

std::optional<MailServer> MailServer::parse(const QString &text)
{
    static const QRegularExpression shape(QStringLiteral("^(?:(pop3s?)://"
                                                         ")?(?:\\[([0-9A-Fa-f:.]+)\\]|([A-Za-z0-9_](?:[A-Za-"
                                                         "z0-9_.-]*[A-Za-z0-9])?))(?::([0-9]{1,5}))?/?$"),
                                          QRegularExpression::CaseInsensitiveOption);
    const auto match = shape.match(text.trimmed());
    if (!match.hasMatch()) return std::nullopt;

    const bool schemeTls = match.captured(1).compare(QLatin1String("pop3s"), Qt::CaseInsensitive) == 0;
    const QString written = match.captured(4);
    const uint port = written.isEmpty() ? (schemeTls ? tlsPort : plainPort) : written.toUInt();
    if (port == 0 || port > 0xffff) return std::nullopt;
    const QString host = match.captured(2).isEmpty() ? match.captured(3) : match.captured(2);
    return MailServer{host, static_cast<quint16>(port), schemeTls || port == tlsPort};
}
