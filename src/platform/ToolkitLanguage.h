// The toolkit's own words, such as the buttons of its boxes and dialogs.
#pragma once

class QString;

// Takes them from the toolkit's translation for a code such as "pt_BR" or "fr"; without one they stay
// English. There is none for Portugal: there our own words lie over those of Brazil where the two differ.
void useToolkitLanguage(const QString &code, bool ofPortugal = false);
