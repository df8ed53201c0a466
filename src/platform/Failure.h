// What goes wrong, and the three ways in which a handler meets it.
// A handler without one of these helpers has no protection: its failure ends the running event.
#pragma once

#include <exception>
#include <functional>
#include <QString>

// An error of the running program as a person may read it: number, where it arose, what happened.
class Failure : public std::exception
{
public:
    // Numbers of the errors that the program's own classes raise.
    enum Number {
        OutOfMemoryOrRange = 6,  // a value does not fit its type
        SubscriptOutOfRange = 9, // an element that isn't there
        TypeMismatch = 13,       // a text that is no number, date or flag
        FileNotFound = 53,
        PathFileAccess = 75,
        InvalidUseOfNull = 94,
        InvalidPropertyValue = 380,
        InvalidPicture = 481,
        NoCurrentRecord = 3021,
        ItemNotFound = 3265,
        StoreError = -2147467259,
    };

    // What the person before the screen can do something about; all the rest is Other.
    enum class Kind {
        Other,
        DatabaseMissing,
        DatabaseLocked,    // somebody else works with it
        DatabaseReadOnly,  // the file, its folder or its disk takes no writes
        DatabaseForbidden, // it is there and cannot be opened
        DatabaseDamaged,   // or none at all
        DatabaseNewer,     // written in a way that this program does not know yet
        DatabaseOlder,     // a server's, which only its administrator brings up to date
        DiskFull,
        AddressBroken,      // a server's, which can't be understood
        PasswordInAddress,  // where anybody could read it
        ServerUnknown,      // no such host
        ServerRefused,      // nobody listens there
        ServerCertificate,  // it is not proved that it is that server
        ServerForbidden,    // it does not let this user in, or not from here
        ServerPassword,     // wrong
        ServerNoPassword,   // it asks for one, and none is kept for it
        ServerPasswordFile, // the same, for others may read the file of passwords, and so it is not looked at
        ServerNoDatabase,   // the server is there, and has none of that name
        ServerLost,         // the connection went, or nobody answered in time; it comes back by itself
        ServerLibraryMissing, // the one that speaks with servers is not on this computer
        ServersNotReached,  // an address, where this edition works with files alone
    };

    Failure(int number, QString source, QString description, Kind kind = Kind::Other);

    int number() const { return number_; }
    const QString &source() const { return source_; }
    const QString &description() const { return description_; }
    Kind kind() const { return kind_; }
    const char *what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString source_;
    QString description_;
    Kind kind_;
    QByteArray what_;
};

// First style: a failing step is skipped and the next one runs. True when the step ran to its end.
bool skipFailure(const std::function<void()> &step);

// Second style: the whole handler has one failure step.
void onFailure(const std::function<void()> &handler, const std::function<void(const Failure &)> &failureStep);
