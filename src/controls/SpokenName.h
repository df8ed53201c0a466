// What a screen reader calls a combo box that has no label of its own.
#pragma once

#include <QComboBox>

// Some desktops take the value for the name of a combo box, and what it is from its label alone. Without a
// label the description says it.
inline void setSpokenName(QComboBox &box, const QString &name)
{
    box.setAccessibleName(name);
    box.setAccessibleDescription(name);
}
