// What the status of an HTTP answer means to an address book.
#pragma once

#include "carddav/RemoteError.h"

#include <QByteArray>

// No error for a status below 300. The body tells some refusals apart.
RemoteError errorOfStatus(int status, const QByteArray &body, const QByteArray &verb);
