// A failure of the store, under the number that all of them have.
#pragma once

#include "platform/Failure.h"

namespace raising
{
[[noreturn]] void failure(const QString &description, const QString &source = {},
                          Failure::Kind kind = Failure::Kind::Other);
} // namespace raising
