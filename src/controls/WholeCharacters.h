// A field of limited length cuts in two a character beyond 16 bits that comes last. Half of one is no
// character, and nothing that reads the text afterwards could make one of it.
#pragma once

class QLineEdit;

// From now on the field drops such a half.
void keepWholeCharacters(QLineEdit &field);
