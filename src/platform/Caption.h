// What a control says, without what it says to the keyboard.
#pragma once

#include <QString>

// A caption without its mnemonic mark, as tips and titles show it.
QString withoutMnemonic(const QString &caption);
