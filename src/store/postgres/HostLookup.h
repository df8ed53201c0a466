// Looks names of hosts up without ever blocking: what answers is waited for with everything else, by a socket.
#pragma once

#include <memory>
#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QStringList>

class HostLookup
{
public:
    // Begins at once. Letting the object go ends nothing but the interest in the answer.
    explicit HostLookup(const QStringList &names);

    int socket() const; // readable once all names have been answered
    bool done() const;

    // Of each name, those of the fourth version of the protocol first; none for a name that nobody knows.
    QHash<QString, QList<QHostAddress>> found() const;

private:
    struct State;
    std::shared_ptr<State> state_;
};
