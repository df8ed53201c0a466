#include "carddav/RemoteError.h"

bool RemoteError::concernsAll() const
{
    switch (kind) {
    case Kind::Address:
    case Kind::NoNetwork:
    case Kind::NoSuchHost:
    case Kind::Refused:
    case Kind::Interrupted:
    case Kind::TimedOut:
    case Kind::Certificate:
    case Kind::Unencrypted:
    case Kind::Elsewhere:
    case Kind::Password:
        return true;
    default:
        return false;
    }
}
