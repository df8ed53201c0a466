// The mail checker's own words: the short texts of its errors, in each language.
#pragma once

#include "mail/Pop3Check.h"

// The language by its name ("AlemaoDE"); an unknown one reads as English.
QString mailErrorText(MailError error, const QString &language);
