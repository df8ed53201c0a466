// What can go wrong between here and an address book on a server.
#pragma once

#include <QString>

struct RemoteError {
    enum class Kind {
        None,
        Address,     // what was typed is no address
        NoNetwork,   // this machine is connected to nothing
        NoSuchHost,  // nobody has that name
        Refused,     // the machine is there and nobody answers at that port
        Interrupted, // it hung up in the middle, or does not speak HTTP at all
        TimedOut,    // nothing moved for too long, or all of it took too long
        Certificate, // it cannot be trusted, or the encryption could not be begun
        Unencrypted, // it wants to lead from an encrypted connection to one that is not
        Elsewhere,   // it leads to another server, which has to be agreed to: detail is that address
        Password,    // name or password
        Forbidden,   // this user may not do that
        NotFound,    // there is nothing at that address
        NoBook,      // somebody answers there, but has no address book to show
        Changed,     // the card there is not the one that was expected: nothing was written
        NotAccepted, // the server does not take this card as it is
        NoRoom,      // the server takes no more, or not a card of that size
        TooBig,      // the answer is larger than anything sensible
        Malformed,   // what came is no answer of an address book
        Server,      // the server itself failed, or refused in a way that tells nothing
    };

    Kind kind = Kind::None;
    int status = 0; // of the HTTP answer; 0 where there was none
    QString detail; // for whoever looks for the cause; in no language in particular, never with the password

    explicit operator bool() const { return kind != Kind::None; }

    // True where the next request would meet the same: it is about the way there or the password, and not
    // about what was asked for.
    bool concernsAll() const;
};
