// Where an address book is, who asks for it, and how much patience there is.
#pragma once

#include <chrono>
#include <optional>
#include <QString>
#include <QUrl>

struct RemoteAccount {
    QString user;
    QString password;
};

struct RemoteLimits {
    std::chrono::milliseconds stillness{30'000}; // without a byte in either direction
    std::chrono::milliseconds request{900'000};  // a single request altogether
    qint64 card = qint64{32} << 20;              // bytes of one card
    qint64 listing = qint64{256} << 20;          // bytes of any other answer
};

// The address as a person writes it: "dav.example.org", "https://example.org/dav/ana/", "localhost:5232".
// Without a scheme it is encrypted, but on this very machine. A name or password within it is dropped.
// Nothing for what is no such address.
std::optional<QUrl> remoteAddress(const QString &text);

// True where name, password and contacts could be read on the way: neither encrypted nor on this very
// machine.
bool isExposed(const QUrl &address);
