// The toolkit's own words, such as the buttons of its boxes and dialogs.
#pragma once

class QString;

// Takes them from the toolkit's translation for a code such as "pt_BR" or "fr"; without one they stay English.
void useToolkitLanguage(const QString &code);
