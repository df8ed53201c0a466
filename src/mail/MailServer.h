// The address of a POP server as a person writes it.
#pragma once

#include <optional>
#include <QString>

struct MailServer {
    QString host;
    quint16 port = 110;
    bool tls = false; // encrypted from the first byte; otherwise STLS where the server offers it

    // "host", "host:port", "[v6]:port", "pop3://host", "pop3s://host", both with an optional port; port 995
    // is encrypted. Nothing for anything else.
    static std::optional<MailServer> parse(const QString &text);
};
