// A report in the language of the program: what its definition takes from the program's own texts.
#pragma once

class QString;
struct ReportDefinition;

// Page numbers and the day are said as the language says them. Title and defaults of the parameters become
// the texts that the definition names by number, in the column of that language, without what only a caption
// has: its mnemonic and a colon at its end. Where the database has no such table, language or text, the
// definition's own words stay. Raises Failure for a database that can't be read.
void sayInLanguage(ReportDefinition &definition, const QString &database, const QString &language);
