// The terminal that the program was started from, where there is one.
#pragma once

class QString;

namespace terminal
{
enum class Stream { Answer, Complaint };

// Written in the terminal's own characters; nobody hears it where nobody reads.
void print(Stream stream, const QString &text);

// Whether nobody reads a terminal, but there is a desktop: a refusal is then told in a box.
bool startedFromDesktop();
} // namespace terminal
