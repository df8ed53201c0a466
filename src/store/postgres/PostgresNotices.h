// What the server tells of other desks' changes: "table letter numbers", as in "tbllista u 77,78", with a star for
// many rows. The letter is i, u or d.
#pragma once

#include "store/Store.h"

#include <optional>
#include <QByteArrayView>

// Nothing for what is none of that.
std::optional<StoreChange> changeIn(QByteArrayView payload);

// What is told where nobody knows what was missed: no table stands for all of them.
StoreChange everythingChanged();
